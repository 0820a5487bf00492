#pragma once
// How the note pane judges the format of the selection: an effect over every character of it
// (uniform or mixed), size and colour from its first character. Without a selection the format that
// typing would use counts.
#include <QTextCharFormat>
#include <QTextCursor>

#include <optional>

namespace velto::notetext {

enum class Effect { Bold, Italic, Underline };

// True when every character of the selection has the effect, false when none has, nothing when mixed.
std::optional<bool> EffectOfSelection(const QTextCursor& cursor, Effect effect);
// What a toggle sets: a uniform selection flips, a mixed one gets the effect.
inline bool ToggledEffect(std::optional<bool> current) {
    return !current.value_or(false);
}
// A format that carries the effect and nothing else, for a merge.
QTextCharFormat EffectFormat(Effect effect, bool on);
// The format of the selection's first character.
QTextCharFormat FormatOfSelection(const QTextCursor& cursor);

} // namespace velto::notetext
