#pragma once
// Filling the "Bear./Kommi." and "Bemerkung" combo boxes of an entry: the presets of
// "Bearbeiter.dat" when that file has content, else the recent texts.
#include "model/PickListLogic.h"

#include <string>

class QComboBox;
class QWidget;

namespace velto {

// Empties both combos (their texts too) and fills them by the rule above.
void FillEntryCombos(QComboBox* assignee, QComboBox* remark, const EntryHistories& histories,
                     const std::string& presetFile);
// Empties both combos and fills them from the histories only.
void FillCombosFromHistories(QComboBox* assignee, QComboBox* remark, const EntryHistories& histories);
// An editable combo for entry texts, limited to what Windows-1252 can hold.
QComboBox* NewEntryCombo(QWidget* parent);

} // namespace velto
