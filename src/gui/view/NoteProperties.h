#pragma once
// The properties of our own that the note pane's QTextDocument carries beside Qt's: what the model
// keeps that Qt cannot hold as it is. One list, so that no two parts of the pane take one number.
#include <QTextFormat>

namespace velto::notetext {

// On a char format: the size the model keeps, in half points (the screen shows it clamped).
inline constexpr int kHalfPointsProperty = QTextFormat::UserProperty + 1;
// On a block: no paragraph mark closes it (only the note's last paragraph can end so).
inline constexpr int kUnterminatedProperty = QTextFormat::UserProperty + 2;
// On a block: the paragraph layout in twips as the note gave it.
inline constexpr int kLayoutProperty = QTextFormat::UserProperty + 3;
// On an object replacement character: the note's picture it stands for (an rtf::PictureRef).
inline constexpr int kPictureProperty = QTextFormat::UserProperty + 4;
// On a list format: the note's list id and the number of the level's first item.
inline constexpr int kListIdProperty = QTextFormat::UserProperty + 5;
inline constexpr int kListStartProperty = QTextFormat::UserProperty + 6;
// On a block inside a table: the right edge in twips of its cell as the note gave it.
inline constexpr int kCellEdgeProperty = QTextFormat::UserProperty + 7;
// On a block: only there because Qt's structure needs a block there (before a table, or filling a
// row shorter than the table); it is no paragraph of the note while nobody has typed into it.
inline constexpr int kStructuralProperty = QTextFormat::UserProperty + 8;

// Qt's step of list and block indents; the pane never changes its document's.
inline constexpr double kIndentWidth = 40.0;
// Twips per pixel of the screen's 96 dots per inch.
inline constexpr double kTwipsPerPixel = 15.0;

} // namespace velto::notetext
