#include "dialogs/CTextFormatDlg.h"

#include "base/ColorRef.h"
#include "dialogs/DialogParts.h"
#include "dialogs/DialogText.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QFormLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace velto {

namespace {

QCheckBox* NewCheck(const char* text, bool checked, QWidget* parent) {
    auto* box = new QCheckBox(QString::fromUtf8(text), parent);
    box->setChecked(checked);
    return box;
}

} // namespace

CTextFormatDlg::CTextFormatDlg(const TitleFormat& format, QWidget* parent)
    : QDialog(parent), m_font(new QComboBox(this)),
      m_strikeOut(NewCheck("Durchgestrichen", format.strikeOut, this)),
      m_underline(NewCheck("Unterstrichen", format.underline, this)),
      m_italic(NewCheck("Kursiv", format.italic, this)), m_bold(NewCheck("Fett", format.bold, this)),
      m_colorButton(new QPushButton("Farbe", this)), m_color(format.color) {
    setWindowTitle("Schriftart");
    // The face name is kept as typed even when the font is not installed here ("Arial" may be
    // drawn with a metric twin), so that saving never renames it.
    m_font->setEditable(true);
    m_font->setInsertPolicy(QComboBox::NoInsert);
    m_font->addItems(QFontDatabase::families());
    m_font->setCurrentText(dlgtext::Show(format.fontName));
    dlgtext::Restrict(m_font);
    m_font->setObjectName("fontName");
    m_colorButton->setObjectName("color");
    connect(m_colorButton, &QPushButton::clicked, this, &CTextFormatDlg::ChooseColor);
    ShowColor();

    auto* form = new QFormLayout;
    form->addRow("Schriftart", m_font);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    for (QWidget* widget : {static_cast<QWidget*>(m_strikeOut), static_cast<QWidget*>(m_underline),
                            static_cast<QWidget*>(m_italic), static_cast<QWidget*>(m_bold),
                            static_cast<QWidget*>(m_colorButton)})
        layout->addWidget(widget);
    layout->addWidget(NewButtonRow(this));
}

TitleFormat CTextFormatDlg::Format() const {
    return {dlgtext::Keep(m_font->currentText()),
            m_strikeOut->isChecked(),
            m_underline->isChecked(),
            m_italic->isChecked(),
            m_bold->isChecked(),
            m_color};
}

void CTextFormatDlg::ChooseColor() {
    const QColor chosen = QColorDialog::getColor(ColorFromColorRef(m_color), this, "Farbe");
    if (chosen.isValid())
        m_color = ColorRefOf(chosen);
    ShowColor();
}

void CTextFormatDlg::ShowColor() {
    QPixmap swatch(16, 16);
    swatch.fill(ColorFromColorRef(m_color));
    m_colorButton->setIcon(QIcon(swatch));
}

} // namespace velto
