#include "dialogs/DialogText.h"

#include "base/Cp1252Text.h"

#include <QComboBox>
#include <QLineEdit>

namespace velto::dlgtext {

QString Show(std::string_view cp1252Bytes) {
    return ToQString(cp1252Bytes);
}

std::string Keep(const QString& text) {
    return ToCp1252Lossy(text);
}

QValidator::State Cp1252Validator::validate(QString& input, int&) const {
    return ToCp1252(input) ? Acceptable : Invalid;
}

void Restrict(QLineEdit* edit) {
    edit->setValidator(new Cp1252Validator(edit));
}

void Restrict(QComboBox* editableCombo) {
    editableCombo->setValidator(new Cp1252Validator(editableCombo));
}

} // namespace velto::dlgtext
