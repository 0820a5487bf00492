#pragma once
// The colours and fonts the timeline and the mind map share, so that a done, late or milestone
// node looks the same in both.
#include "outline/MindMapGeometry.h"

#include <QColor>
#include <QFont>

namespace velto::chartstyle {

inline const QColor kBackground(255, 255, 255);
inline const QColor kGrid(200, 200, 200);
inline const QColor kProgress(0, 255, 0);
inline const QColor kLate(255, 0, 0);
inline const QColor kNote(255, 255, 0);
inline const QColor kMilestone(0, 0, 255);
inline const QColor kCell(230, 230, 230);

// The font of a node's title at a character height (the height of the character cell, as the
// chart's sizes are given). Kerning is off: titles are measured as the sum of their characters'
// advances, and drawn the same way.
QFont TitleFont(const TitleStyle& style);
// A font of the chart's own texts (header, day numbers) at a character height.
QFont ChartFont(int cellHeight, QFont::Weight weight = QFont::Normal);

} // namespace velto::chartstyle
