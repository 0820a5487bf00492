#pragma once
// "Report drucken": the header line and the font size of a printed report.
#include <QDialog>

class QLineEdit;
class QSpinBox;

namespace velto {

class CReportPrintDlg : public QDialog {
    Q_OBJECT
public:
    explicit CReportPrintDlg(const QString& headerLine, QWidget* parent = nullptr);

    QString HeaderLine() const;
    int FontSize() const;

private:
    QLineEdit* m_header = nullptr;
    QSpinBox* m_fontSize = nullptr;
};

} // namespace velto
