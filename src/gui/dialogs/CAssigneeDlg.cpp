#include "dialogs/CAssigneeDlg.h"

#include "common/Prompter.h"
#include "dialogs/DialogParts.h"
#include "dialogs/DialogText.h"
#include "files/AssigneeFile.h"
#include "model/HoursLogic.h"
#include "model/PickListLogic.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

namespace velto {

CAssigneeDlg::CAssigneeDlg(std::string presetFile, Prompter& prompter, QWidget* parent)
    : QDialog(parent), m_presetFile(std::move(presetFile)), m_prompter(prompter),
      m_list(new QListWidget(this)), m_edit(new QLineEdit(this)) {
    setWindowTitle("Bearbeiter / Komission");
    m_list->setObjectName("presets");
    m_edit->setObjectName("preset");
    dlgtext::Restrict(m_edit);
    AssigneeFileContent file = ReadAssigneeFile(m_presetFile);
    m_readError = file.error;
    SortLikeListBox(file.presets);
    for (const std::string& preset : file.presets)
        m_list->addItem(dlgtext::Show(preset));

    auto* add = new QPushButton("Zu Liste hinzufügen", this);
    auto* takeBack = new QPushButton("Eintrag editieren / löschen", this);
    add->setObjectName("add");
    takeBack->setObjectName("takeBack");
    add->setAutoDefault(false);
    add->setToolTip(QString::fromUtf8("Den eingegebenen Text in die Liste übernehmen (Eingabetaste)"));
    takeBack->setToolTip(QString::fromUtf8(
        "Den gewählten Eintrag zum Bearbeiten in das Eingabefeld holen (Doppelklick, Entf)"));
    takeBack->setAutoDefault(false);
    connect(add, &QPushButton::clicked, this, &CAssigneeDlg::AddPreset);
    connect(takeBack, &QPushButton::clicked, this, &CAssigneeDlg::TakeBackPreset);
    TakeBackOnDoubleClickOrDelete(m_list, [this] { TakeBackPreset(); });

    auto* layout = new QGridLayout(this);
    layout->addWidget(new QLabel("Vorbelegung: Bearbeiter / Komission / Bemerkung", this), 0, 0, 1, 2);
    layout->addWidget(m_edit, 1, 0, 1, 2);
    layout->addWidget(add, 2, 0);
    layout->addWidget(takeBack, 2, 1);
    layout->addWidget(m_list, 3, 0, 1, 2);
    QDialogButtonBox* buttons = NewButtonRow(this);
    if (m_readError != 0) {
        auto* notice =
            new QLabel(QString::fromStdString(CannotReadDataFileMessage(m_presetFile, m_readError)), this);
        notice->setObjectName("unreadable");
        notice->setWordWrap(true);
        layout->addWidget(notice, 4, 0, 1, 2);
        AcceptButtonOf(buttons)->setEnabled(false);
    }
    layout->addWidget(buttons, 5, 0, 1, 2);
}

std::vector<std::string> CAssigneeDlg::Presets() const {
    std::vector<std::string> presets;
    for (int i = 0; i < m_list->count(); ++i)
        presets.push_back(dlgtext::Keep(m_list->item(i)->text()));
    return presets;
}

void CAssigneeDlg::AddPreset() {
    // No check for duplicates or empty text: the list takes what is typed.
    const std::string preset = dlgtext::Keep(m_edit->text());
    const int row = int(ListBoxInsertPosition(Presets(), preset));
    m_list->insertItem(row, dlgtext::Show(preset));
    m_list->setCurrentRow(row);
    m_edit->clear();
}

void CAssigneeDlg::keyPressEvent(QKeyEvent* event) {
    // Enter after typing a preset adds it, rather than closing the dialog with OK.
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && m_edit->hasFocus()) {
        event->accept();
        AddPreset();
        return;
    }
    QDialog::keyPressEvent(event);
}

void CAssigneeDlg::TakeBackPreset() {
    QListWidgetItem* item = m_list->currentItem();
    if (!item || !item->isSelected()) {
        m_prompter.Tell(kNoEntrySelected, Prompter::kCaption, PromptIcon::None);
        return;
    }
    m_edit->setText(item->text());
    delete item;
}

void CAssigneeDlg::accept() {
    if (m_readError != 0) // OK is disabled; the notice above the buttons says why
        return;
    // A failed write would lose the edited list without a word; the dialog stays open instead, so
    // the user can try again or cancel.
    if (const SaveOutcome saved = SaveAssignees(m_presetFile, Presets()); !saved) {
        m_prompter.Tell(CannotSaveDataFileMessage(m_presetFile, saved.error), Prompter::kCaption,
                        PromptIcon::Warning);
        return;
    }
    QDialog::accept();
}

} // namespace velto
