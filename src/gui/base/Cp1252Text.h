#pragma once
// Model strings hold Windows-1252 bytes; the widgets show QString. Every model string crosses here.
#include <QString>

#include <optional>
#include <string>
#include <string_view>

namespace velto {

// Lossless for all 256 byte values.
QString ToQString(std::string_view cp1252Bytes);
// Nothing when a character has no Windows-1252 byte (the caller tells the user).
std::optional<std::string> ToCp1252(const QString& text);
// Every character without a Windows-1252 byte becomes '?'.
std::string ToCp1252Lossy(const QString& text);

} // namespace velto
