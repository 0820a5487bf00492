#include "dialogs/CReportPrintDlg.h"

#include "dialogs/DialogParts.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QSpinBox>
#include <QVBoxLayout>

namespace velto {

namespace {
constexpr int kDefaultFontSize = 10;
} // namespace

CReportPrintDlg::CReportPrintDlg(const QString& headerLine, QWidget* parent) : QDialog(parent) {
    setWindowTitle("Report drucken");
    m_header = new QLineEdit(headerLine, this);
    m_header->setObjectName("header");
    m_fontSize = new QSpinBox(this);
    m_fontSize->setObjectName("fontSize");
    m_fontSize->setRange(6, 36);
    m_fontSize->setValue(kDefaultFontSize);

    auto* form = new QFormLayout;
    form->addRow("Kopfzeile", m_header);
    form->addRow("Schriftgröße", m_fontSize);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(NewButtonRow(this, "Drucken", "Abbrechen"));
    m_header->setMinimumWidth(320);
}

QString CReportPrintDlg::HeaderLine() const {
    return m_header->text();
}

int CReportPrintDlg::FontSize() const {
    return m_fontSize->value();
}

} // namespace velto
