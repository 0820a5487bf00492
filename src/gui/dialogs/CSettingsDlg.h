#pragma once
// "Einstellungen": the projects opened at start, the default font of new notes, what the chart shows
// before a node's text, the date the sort uses and the bar colour rule. The settings are read when
// the dialog opens and written on OK; "Abbrechen" writes nothing.
#include "dialogs/SettingsValues.h"

#include <QDialog>

#include <array>

class QAbstractButton;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLineEdit;
class QRadioButton;
class QSpinBox;

namespace velto {

class Desktop;

class CSettingsDlg : public QDialog {
    Q_OBJECT
public:
    // Reads the settings from store (which tells "Regestry Error" when it cannot be opened; the
    // dialog then shows the defaults). desktop picks the start files.
    CSettingsDlg(SettingsStore& store, Desktop& desktop, QWidget* parent = nullptr);

    SettingsValues Values() const;

    // Writes every value; when the store cannot be opened it has told so and nothing is written.
    void accept() override;

private:
    QGroupBox* BuildStartFilesGroup();
    QGroupBox* BuildNoteFontGroup();
    QGroupBox* BuildPrefixGroup();
    QGroupBox* BuildSortGroup();
    void Show(const SettingsValues& values);
    void BrowseStartFile(QLineEdit* edit);

    SettingsStore& m_store;
    Desktop& m_desktop;
    std::array<QLineEdit*, 3> m_startFiles{};
    QComboBox* m_fontName = nullptr;
    QSpinBox* m_fontSize = nullptr;
    QCheckBox* m_startDate = nullptr;
    QCheckBox* m_dueDate = nullptr;
    QCheckBox* m_responsible = nullptr;
    QRadioButton* m_sortByStart = nullptr;
    QRadioButton* m_sortByDue = nullptr;
    QCheckBox* m_barInNodeColour = nullptr;
};

// Runs "Einstellungen" modally; true when the settings were written.
bool EditSettings(QWidget* parent, SettingsStore& store, Desktop& desktop);

} // namespace velto
