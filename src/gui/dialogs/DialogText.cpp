#include "dialogs/DialogText.h"

#include "model/Cp1252.h"

#include <QComboBox>
#include <QLineEdit>

namespace dlgtext {

QString Show(std::string_view cp1252Bytes) {
    return QString::fromStdString(cp1252::ToUtf8(cp1252Bytes));
}

std::string Keep(const QString& text) {
    return cp1252::FromUtf8Lossy(text.toStdString());
}

QValidator::State Cp1252Validator::validate(QString& input, int&) const {
    return cp1252::Fits(input.toStdString()) ? Acceptable : Invalid;
}

void Restrict(QLineEdit* edit) {
    edit->setValidator(new Cp1252Validator(edit));
}

void Restrict(QComboBox* editableCombo) {
    editableCombo->setValidator(new Cp1252Validator(editableCombo));
}

} // namespace dlgtext
