#include "view/NoteSelection.h"

#include <QTextBlock>
#include <QTextDocument>

namespace velto::notetext {
namespace {

bool HasEffect(const QTextCharFormat& format, Effect effect) {
    switch (effect) {
    case Effect::Bold:
        return format.fontWeight() >= QFont::DemiBold;
    case Effect::Italic:
        return format.fontItalic();
    case Effect::Underline:
        return format.fontUnderline();
    }
    return false;
}

} // namespace

std::optional<bool> EffectOfSelection(const QTextCursor& cursor, Effect effect) {
    if (!cursor.hasSelection())
        return HasEffect(cursor.charFormat(), effect);
    const int start = cursor.selectionStart();
    const int end = cursor.selectionEnd();
    std::optional<bool> seen;
    for (QTextBlock block = cursor.document()->findBlock(start); block.isValid() && block.position() < end;
         block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment fragment = it.fragment();
            if (fragment.position() + fragment.length() <= start || fragment.position() >= end)
                continue;
            const bool has = HasEffect(fragment.charFormat(), effect);
            if (seen && *seen != has)
                return std::nullopt;
            seen = has;
        }
    }
    if (seen)
        return seen;
    // A selection of paragraph marks alone holds no character.
    return HasEffect(cursor.charFormat(), effect);
}

QTextCharFormat EffectFormat(Effect effect, bool on) {
    QTextCharFormat format;
    switch (effect) {
    case Effect::Bold:
        format.setFontWeight(on ? QFont::Bold : QFont::Normal);
        break;
    case Effect::Italic:
        format.setFontItalic(on);
        break;
    case Effect::Underline:
        format.setFontUnderline(on);
        break;
    }
    return format;
}

QTextCharFormat FormatOfSelection(const QTextCursor& cursor) {
    if (!cursor.hasSelection())
        return cursor.charFormat();
    QTextCursor first(cursor.document());
    first.setPosition(cursor.selectionStart() + 1);
    return first.charFormat();
}

} // namespace velto::notetext
