#pragma once

namespace velto {

// What the timeline chart needs from the window that holds it, and the display options it applies.
// The chart reads the host's document and changes it only through the host's commands, except for
// its own node clipboard and drag moves.

class CVeltoDoc;
class Prompter;

class ChartHost {
public:
    virtual ~ChartHost() = default;
    // The document whose node list is drawn; it outlives the chart, or the host calls
    // CGrafik::DetachDocument first.
    virtual CVeltoDoc* Document() = 0;
    // The undo copy ("Backup Baum"), taken before the chart changes the tree itself.
    virtual void TakeUndoCopy() = 0;
    // A double click on a row: the node dialog of the selected node.
    virtual void EditSelectedNode() = 0;
    // A paste goes to the note pane while that has the focus.
    virtual bool NotePaneHasFocus() const = 0;
    virtual void PasteIntoNotePane() = 0;
    // Messages of the chart ("Zwischenablage ist leer!" and the like).
    virtual Prompter& ChartPrompter() = 0;
};

// The display settings of the timeline, taken from the user settings and the view.
struct ChartOptions {
    int datePrefix = 0;           // "Datum": 0 none, 1 start, 2 due, 3 both
    bool showResponsible = false; // "Verant": the responsible person's short code before the title
    bool barInNodeColour = false; // "Balken": bars in the node's text colour
    bool showCosts = false;       // the view's hours/costs mode: tasks show the cost box
};

} // namespace velto
