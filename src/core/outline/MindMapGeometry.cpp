#include "outline/MindMapGeometry.h"

namespace velto {

TitleStyle TitleStyleOf(const CProjectNode& node, int size) {
    return {node.m_strFontName.str(), node.m_bBold != 0,      node.m_bItalic != 0,
            node.m_bUnderline != 0,   node.m_bStrikeOut != 0, size};
}

} // namespace velto
