#pragma once
// The view of one project inside its window. For now it shows the outline as plain rows (the visible
// nodes indented by level, the current node highlighted, a click selects) and the node info line;
// the chart and the node commands take its place later. It already claims every command that is
// the view's, so they stay visible but disabled until they come, and 32791 is never taken by the
// main frame's settings while a view is active.
#include "app/CommandTarget.h"
#include "document/CVeltoDoc.h"

#include <QWidget>

struct ShellState;
class QListWidget;
class CProjectNode;

// The view values a project file keeps.
struct ViewLayout {
    int chartWidth1 = 200;
    int chartWidth2 = 200;
    int zoom = 20;
};

class CVeltoView : public QWidget, public CommandTarget, public CDocObserver {
    Q_OBJECT
public:
    CVeltoView(CVeltoDoc& doc, const ShellState& shell, QWidget* parent = nullptr);
    ~CVeltoView() override;

    CVeltoDoc& GetDocument() const { return m_doc; }

    bool OnUpdateCommand(int id, CommandState& state) override;
    bool OnCommand(int id) override;
    void OnDocumentUpdated(CVeltoDoc& doc) override;

    ViewLayout GetLayout() const { return m_layout; }
    // Takes the values of a file just read: the zoom goes to the timeline and to the mind map.
    void SetLayout(const ViewLayout& layout);
    int MindMapZoom() const { return m_mindMapZoom; }

    // Draws everything anew in the mode the main frame shows.
    void Redraw();
    bool ShowsMindMap() const { return m_showsMindMap; }

    // The status pane's node info line for the current node ("Erstellt: ..."), in hours or costs.
    static QString NodeInfoLine(const CProjectNode& node, bool costs);

private:
    void FillRows();
    void SelectRow(int row);

    CVeltoDoc& m_doc;
    const ShellState& m_shell;
    QListWidget* m_rows;
    ViewLayout m_layout;
    int m_mindMapZoom = 20;
    bool m_showsMindMap = false;
    bool m_showCosts = false;
};
