#include "dialogs/CHoursReportDlg.h"

#include "outline/HoursReport.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace velto {

CHoursReportDlg::CHoursReportDlg(const CProjectNode* first, Prompter& prompter, QWidget* parent)
    : ReportDialog("Stunden - Report", prompter, parent), m_first(first) {
    auto* group = new QGroupBox("Spalten", this);
    auto* layout = new QHBoxLayout(group);
    const std::pair<const char*, unsigned> kBoxes[] = {{"Wochentag", kHoursWeekday},
                                                       {"Uhrzeiten", kHoursTimes},
                                                       {"Aufgabe", kHoursTask},
                                                       {"Bearbeiter", kHoursAssignee},
                                                       {"Bemerkung", kHoursRemark}};
    for (const auto& [text, bit] : kBoxes) {
        auto* box = new QCheckBox(text, group);
        box->setObjectName(text);
        box->setChecked(true);
        layout->addWidget(box);
        m_columnBoxes.emplace_back(box, bit);
        connect(box, &QCheckBox::toggled, this, &ReportDialog::Refill);
    }
    layout->addStretch();
    ChoiceArea()->addWidget(group);
    Refill();
}

unsigned CHoursReportDlg::Columns() const {
    unsigned columns = 0;
    for (const auto& [box, bit] : m_columnBoxes)
        columns |= box->isChecked() ? bit : 0;
    return columns;
}

std::unique_ptr<Report> CHoursReportDlg::BuildReport(const ReportOptions& options) const {
    return std::make_unique<HoursReport>(m_first, options, Columns());
}

} // namespace velto
