#include "dialogs/CSettingsDlg.h"

#include "base/Desktop.h"
#include "dialogs/DialogParts.h"
#include "dialogs/DialogText.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace velto {

namespace {

QString Text(const char* utf8) {
    return QString::fromUtf8(utf8);
}

QCheckBox* NewCheck(const char* text, const char* name, const char* tip, QWidget* parent) {
    auto* box = new QCheckBox(Text(text), parent);
    box->setObjectName(name);
    box->setToolTip(Text(tip));
    return box;
}

} // namespace

CSettingsDlg::CSettingsDlg(SettingsStore& store, Desktop& desktop, QWidget* parent)
    : QDialog(parent), m_store(store), m_desktop(desktop) {
    setWindowTitle("Einstellungen");
    m_barInNodeColour = NewCheck("Balkenfarbe = Knotentextfarbe", "barInNodeColour",
                                 "Die Balken im Zeitplan nehmen die Farbe des Knotentextes an.", this);
    auto* notice = new QLabel(Text("Änderungen werden erst nach\neinem Neustart sichtbar!"), this);

    auto* chart = new QHBoxLayout;
    chart->addWidget(BuildPrefixGroup());
    chart->addWidget(BuildSortGroup());
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(BuildStartFilesGroup());
    layout->addWidget(BuildNoteFontGroup());
    layout->addLayout(chart);
    layout->addWidget(m_barInNodeColour);
    layout->addWidget(notice);
    layout->addWidget(NewButtonRow(this));
    Show(ReadSettingsValues(m_store.Open()));
}

QGroupBox* CSettingsDlg::BuildStartFilesGroup() {
    auto* group = new QGroupBox(Text("Beim Start folgende Dateien öffen"), this);
    auto* grid = new QGridLayout(group);
    for (int i = 0; i < int(m_startFiles.size()); ++i) {
        QLineEdit* edit = m_startFiles[i] = new QLineEdit(group);
        edit->setObjectName(QStringLiteral("startFile%1").arg(i + 1));
        edit->setClearButtonEnabled(true);
        edit->setMinimumWidth(edit->fontMetrics().averageCharWidth() * 50);
        edit->setToolTip(Text("Dieses Projekt öffnet Velto bei jedem Start. Leer: keines."));
        auto* browse = new QPushButton("Durchsuchen", group);
        browse->setObjectName(QStringLiteral("browse%1").arg(i + 1));
        browse->setAutoDefault(false);
        browse->setToolTip(Text("Projektdatei auswählen"));
        connect(browse, &QPushButton::clicked, this, [this, edit] { BrowseStartFile(edit); });
        grid->addWidget(edit, i, 0);
        grid->addWidget(browse, i, 1);
    }
    return group;
}

QGroupBox* CSettingsDlg::BuildNoteFontGroup() {
    auto* group = new QGroupBox("Standard Schrift Notiz", this);
    m_fontName = new QComboBox(group);
    m_fontSize = new QSpinBox(group);
    m_fontName->setObjectName("fontName");
    m_fontSize->setObjectName("fontSize");
    // The name is kept as stored even when that font is not installed here ("Arial" may be drawn
    // with a metric twin), so that opening and confirming the dialog never renames it.
    m_fontName->setEditable(true);
    m_fontName->setInsertPolicy(QComboBox::NoInsert);
    m_fontName->addItems(QFontDatabase::families());
    dlgtext::Restrict(m_fontName);
    m_fontName->setToolTip(Text("Schriftart neuer Notizen"));
    m_fontSize->setRange(setting::kMinNoteFontSize, setting::kMaxNoteFontSize);
    m_fontSize->setToolTip(Text("Schriftgröße neuer Notizen (6 bis 100)"));
    auto* form = new QFormLayout(group);
    form->addRow(m_fontName);
    form->addRow(Text("Schriftgröße"), m_fontSize);
    return group;
}

QGroupBox* CSettingsDlg::BuildPrefixGroup() {
    auto* group = new QGroupBox("Anzeige vor Knotentext", this);
    m_startDate = NewCheck("Startdatum", "startDate", "Das Startdatum steht vor dem Knotentext.", group);
    m_dueDate = NewCheck("Enddatum", "dueDate", "Das Enddatum steht vor dem Knotentext.", group);
    m_responsible = NewCheck("Kurzzeichen des\nVerantwortlichen", "responsible",
                             "Das Kurzzeichen des Verantwortlichen steht vor dem Knotentext.", group);
    auto* column = new QVBoxLayout(group);
    for (QCheckBox* box : {m_startDate, m_dueDate, m_responsible})
        column->addWidget(box);
    column->addStretch(1);
    return group;
}

QGroupBox* CSettingsDlg::BuildSortGroup() {
    auto* group = new QGroupBox("Sortieren", this);
    m_sortByStart = new QRadioButton("Nach Startdatum", group);
    m_sortByDue = new QRadioButton("Nach Enddatum", group);
    m_sortByStart->setObjectName("sortByStart");
    m_sortByDue->setObjectName("sortByDue");
    group->setToolTip(Text("Das Datum, nach dem „Nach Datum sortieren“ ordnet"));
    auto* radios = new QButtonGroup(group);
    radios->addButton(m_sortByStart);
    radios->addButton(m_sortByDue);
    auto* column = new QVBoxLayout(group);
    column->addWidget(m_sortByStart);
    column->addWidget(m_sortByDue);
    column->addStretch(1);
    return group;
}

void CSettingsDlg::Show(const SettingsValues& values) {
    for (std::size_t i = 0; i < m_startFiles.size(); ++i)
        m_startFiles[i]->setText(values.startFiles[i]);
    m_fontName->setCurrentText(values.noteFontName);
    m_fontSize->setValue(values.noteFontSize);
    m_startDate->setChecked(values.showStartDate);
    m_dueDate->setChecked(values.showDueDate);
    m_responsible->setChecked(values.showResponsible);
    (values.sortByDue ? m_sortByDue : m_sortByStart)->setChecked(true);
    m_barInNodeColour->setChecked(values.barInNodeColour);
}

SettingsValues CSettingsDlg::Values() const {
    SettingsValues values;
    for (std::size_t i = 0; i < m_startFiles.size(); ++i)
        values.startFiles[i] = m_startFiles[i]->text();
    values.noteFontName = m_fontName->currentText();
    values.noteFontSize = m_fontSize->value();
    values.showStartDate = m_startDate->isChecked();
    values.showDueDate = m_dueDate->isChecked();
    values.showResponsible = m_responsible->isChecked();
    values.sortByDue = m_sortByDue->isChecked();
    values.barInNodeColour = m_barInNodeColour->isChecked();
    return values;
}

void CSettingsDlg::BrowseStartFile(QLineEdit* edit) {
    const QString chosen = m_desktop.ChooseFileToOpen(this);
    if (!chosen.isEmpty())
        edit->setText(chosen);
}

void CSettingsDlg::accept() {
    // A store that cannot be opened or written has told the user; the dialog closes all the same,
    // as trying again would fail again.
    SettingsSession settings = m_store.Open();
    WriteSettingsValues(settings, Values());
    done(settings.Commit() ? Accepted : Rejected);
}

bool EditSettings(QWidget* parent, SettingsStore& store, Desktop& desktop) {
    CSettingsDlg dialog(store, desktop, parent);
    return dialog.exec() == QDialog::Accepted;
}

} // namespace velto
