#pragma once
// "Kosten - Report": the entries of the calculated ("Kalkuliert") or the needed ("Benötigt") cost
// lists of the whole project in a period, incomes and expenses with their signs.
#include "dialogs/ReportDialog.h"

class QRadioButton;

namespace velto {

class CProjectNode;

class CCostReportDlg : public ReportDialog {
    Q_OBJECT
public:
    CCostReportDlg(const CProjectNode* first, Prompter& prompter, QWidget* parent = nullptr);

protected:
    std::unique_ptr<Report> BuildReport(const ReportOptions& options) const override;

private:
    const CProjectNode* m_first;
    QRadioButton* m_calculated = nullptr;
};

} // namespace velto
