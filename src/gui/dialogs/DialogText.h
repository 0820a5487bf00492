#pragma once
// The node dialogs' side of the text boundary: model strings are Windows-1252 bytes, widgets show
// QString, and every single-line edit of a saved text accepts only characters Windows-1252 can
// hold, so the user sees at once what can be saved.
#include <QString>
#include <QValidator>

#include <string>
#include <string_view>

class QComboBox;
class QLineEdit;

namespace velto::dlgtext {

// Lossless for all 256 byte values; both go through the GUI's one Windows-1252 helper.
QString Show(std::string_view cp1252Bytes);
// The edits only hold what fits (see Restrict); anything else would become '?'.
std::string Keep(const QString& text);

// Refuses any character without a Windows-1252 byte.
class Cp1252Validator : public QValidator {
public:
    using QValidator::QValidator;
    State validate(QString& input, int& pos) const override;
};

void Restrict(QLineEdit* edit);
void Restrict(QComboBox* editableCombo);

} // namespace velto::dlgtext
