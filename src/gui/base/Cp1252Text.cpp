#include "base/Cp1252Text.h"

#include "model/Cp1252.h"

#include <QList>
#include <QStringView>

namespace velto {

namespace {
// Walks the text by code point; surrogate pairs become one character, a lone surrogate stays a
// code point that Windows-1252 cannot hold.
template <typename OnChar> bool ForEachCodePoint(const QString& text, OnChar&& onChar) {
    for (char32_t codePoint : QStringView(text).toUcs4())
        if (!onChar(codePoint))
            return false;
    return true;
}
} // namespace

QString ToQString(std::string_view cp1252Bytes) {
    QString out;
    out.reserve(qsizetype(cp1252Bytes.size()));
    for (unsigned char byte : cp1252Bytes)
        out.append(QChar(char16_t(cp1252::ToUnicode(byte))));
    return out;
}

std::optional<std::string> ToCp1252(const QString& text) {
    std::string out;
    out.reserve(size_t(text.size()));
    const bool fits = ForEachCodePoint(text, [&](char32_t codePoint) {
        const auto byte = cp1252::FromUnicode(codePoint);
        if (byte)
            out.push_back(char(*byte));
        return byte.has_value();
    });
    if (!fits)
        return std::nullopt;
    return out;
}

std::string ToCp1252Lossy(const QString& text) {
    std::string out;
    out.reserve(size_t(text.size()));
    ForEachCodePoint(text, [&](char32_t codePoint) {
        out.push_back(char(cp1252::FromUnicode(codePoint).value_or('?')));
        return true;
    });
    return out;
}

} // namespace velto
