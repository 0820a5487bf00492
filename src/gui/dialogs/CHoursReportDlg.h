#pragma once
// "Stunden - Report": the recorded hours of the whole project in a period, with the columns the
// user ticks ("Spalten"), all ticked when the dialog opens.
#include "dialogs/ReportDialog.h"

namespace velto {

class CProjectNode;

class CHoursReportDlg : public ReportDialog {
    Q_OBJECT
public:
    CHoursReportDlg(const CProjectNode* first, Prompter& prompter, QWidget* parent = nullptr);

protected:
    std::unique_ptr<Report> BuildReport(const ReportOptions& options) const override;

private:
    unsigned Columns() const;

    const CProjectNode* m_first;
    std::vector<std::pair<QCheckBox*, unsigned>> m_columnBoxes;
};

} // namespace velto
