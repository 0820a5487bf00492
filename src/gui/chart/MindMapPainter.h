#pragma once
// Paints a laid-out mind map into any QPainter: the chart window's back buffer, a test image, or
// a printer page. Only what crosses the view is drawn: the lines cut to it, then the boxes
// with their titles, status strips and marks.
#include "outline/MindMapLayout.h"

#include <QPainter>

#include <vector>

namespace velto {

struct MindMapScene {
    const MindMapLayout& layout;
    MapRect view;          // the part of the map drawn; its top-left corner goes to (0, 0)
    bool printing = false; // no selection frame on paper
};

class MindMapPainter {
public:
    static constexpr int kSelectionGap = 2; // between a box and the frame of the selection

    MindMapPainter(QPainter& painter, const MindMapScene& scene) : m_p(painter), m_s(scene) {}
    void Paint();

private:
    QPoint ToWindow(MapPoint p) const { return {p.x - m_s.view.x, p.y - m_s.view.y}; }
    QRect ToWindow(const MapRect& r) const { return {r.x - m_s.view.x, r.y - m_s.view.y, r.w, r.h}; }
    void PaintLines();
    void PaintBox(int index);
    void PaintStatusStrip(const CProjectNode& node, const QRect& box);
    void PaintMark(const MindMapBox& box, const QRect& mark);

    QPainter& m_p;
    const MindMapScene& m_s;
};

} // namespace velto
