#pragma once
// The search dialog's five indicators, one per part of a node that can hold the search text: the
// title, the note, the hours, the calculated and the needed costs. Drawn here so that the program
// ships no image files for them.
#include "outline/TextSearch.h"

#include <QPixmap>

namespace velto {

inline constexpr int kSearchIconSize = 24;

// The picture of one part (a single SearchPart, not a set).
QPixmap SearchPartIcon(SearchPart part);

} // namespace velto
