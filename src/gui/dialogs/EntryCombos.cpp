#include "dialogs/EntryCombos.h"

#include "dialogs/DialogText.h"
#include "files/AssigneeFile.h"

#include <QComboBox>

namespace velto {

namespace {

void Refill(QComboBox* combo, const std::vector<std::string>& items) {
    combo->clear();
    for (const std::string& item : items)
        combo->addItem(dlgtext::Show(item));
    combo->clearEditText();
}

void FillWith(QComboBox* assignee, QComboBox* remark, const EntryChoices& choices) {
    Refill(assignee, choices.assignee);
    Refill(remark, choices.remark);
}

} // namespace

void FillEntryCombos(QComboBox* assignee, QComboBox* remark, const EntryHistories& histories,
                     const std::string& presetFile) {
    // A file that cannot be read offers the recent texts, as a missing one does.
    const AssigneeFileContent file = ReadAssigneeFile(presetFile);
    FillWith(assignee, remark, ChooseEntryChoices(file.hasContent, file.presets, histories));
}

void FillCombosFromHistories(QComboBox* assignee, QComboBox* remark, const EntryHistories& histories) {
    FillWith(assignee, remark, ChooseEntryChoices(false, {}, histories));
}

QComboBox* NewEntryCombo(QWidget* parent) {
    auto* combo = new QComboBox(parent);
    combo->setEditable(true);
    combo->setInsertPolicy(QComboBox::NoInsert);
    combo->setMinimumWidth(140);
    dlgtext::Restrict(combo);
    return combo;
}

} // namespace velto
