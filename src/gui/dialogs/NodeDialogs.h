#pragma once

class QWidget;

namespace velto {

// The node dialogs as the view's commands run them on a document: what goes in (the histories, the
// node list, the preset file) and what comes back (histories, modified flag, updated views).
class CProjectNode;
class CVeltoDoc;
class Prompter;

// "Knoten bearbeiten" for node (the document's current node). OK takes the undo copy of the tree
// first, then writes the node, hands the histories back, marks the document modified and updates
// its views. Returns whether the node was changed.
bool EditNodeOfDocument(QWidget* parent, CVeltoDoc& doc, CProjectNode& node, Prompter& prompter);

// "Ausstempeln" for a clocked-in task, also from the document's close. The clock stops in any case
// and the views are updated; an accepted entry goes into the hours with the histories back in the
// document, which is then marked modified. Returns whether an entry was added.
bool ClockOutNodeOfDocument(QWidget* parent, CVeltoDoc& doc, CProjectNode& node, Prompter& prompter);

// "Bearbeiter / Komission": edits the presets of "Bearbeiter.dat" in the data directory. Returns
// whether the file was written.
bool EditAssigneePresets(QWidget* parent, Prompter& prompter);

} // namespace velto
