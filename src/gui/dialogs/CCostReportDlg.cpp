#include "dialogs/CCostReportDlg.h"

#include "outline/CostReport.h"

#include <QHBoxLayout>
#include <QRadioButton>
#include <QVBoxLayout>

namespace velto {

CCostReportDlg::CCostReportDlg(const CProjectNode* first, Prompter& prompter, QWidget* parent)
    : ReportDialog("Kosten - Report", prompter, parent), m_first(first) {
    m_calculated = new QRadioButton("Kalkuliert", this);
    m_calculated->setObjectName("calculated");
    m_calculated->setChecked(true);
    auto* needed = new QRadioButton("Benötigt", this);
    needed->setObjectName("needed");
    auto* row = new QHBoxLayout;
    row->addWidget(m_calculated);
    row->addWidget(needed);
    row->addStretch();
    ChoiceArea()->addLayout(row);
    // "Kalkuliert" toggles whichever of the pair the user picks, so its signal alone refills.
    connect(m_calculated, &QRadioButton::toggled, this, &ReportDialog::Refill);
    Refill();
}

std::unique_ptr<Report> CCostReportDlg::BuildReport(const ReportOptions& options) const {
    return std::make_unique<CostReport>(m_first, options,
                                        m_calculated->isChecked() ? CostList::Calculated : CostList::Needed);
}

} // namespace velto
