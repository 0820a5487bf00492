#pragma once
// The note pane of a project window: the selected node's note (RTF) in a rich-text control (137)
// below a row of format buttons (141 to 150, then lists and indents). An edited note is written back into its
// node, with the change time stamp and the document's modified flag, on every key let go, after every format
// operation and when the control loses the focus; a note that was only looked at keeps its bytes.
#include "base/CommandMap.h"
#include "model/CTime.h"
#include "model/NoteText.h"

#include <QFont>
#include <QWidget>

#include <array>
#include <functional>
#include <memory>
#include <optional>

class QMenu;
class QTextEdit;
class QToolButton;

namespace velto {

class CProjectNode;
class CVeltoDoc;
class NoteEditor;
class Prompter;

namespace notetext {
class NoteLinkOpener;
enum class Effect;
} // namespace notetext

// The dialogs the pane opens. Each left empty is the real dialog; tests give their own.
struct NotePaneDialogs {
    // A colour (COLORREF, red in the low byte) starting from colorRef; nothing when cancelled.
    std::function<std::optional<int>(QWidget* parent, int colorRef)> chooseColour;
    std::function<std::optional<QFont>(QWidget* parent, const QFont& font)> chooseFont;
    // The target of a new hyperlink ("Hyperlink einfügen"), offering the selected text; nothing when
    // cancelled.
    std::function<std::optional<QString>(QWidget* parent, const QString& selected)> askHyperlink;
};

class CNotePane : public QWidget {
    Q_OBJECT
public:
    // The format buttons (their control ids), in their order on the row.
    static constexpr int kBoldButton = 141;
    static constexpr int kItalicButton = 142;
    static constexpr int kUnderlineButton = 143;
    static constexpr int kColourButton = 144;
    static constexpr int kAlignLeftButton = 145;
    static constexpr int kAlignCentreButton = 146;
    static constexpr int kAlignRightButton = 147;
    static constexpr int kLargerButton = 148;
    static constexpr int kSmallerButton = 149;
    static constexpr int kHyperlinkButton = 150;
    // How long the status bar tells of pictures scaled down on paste.
    static constexpr int kStatusNoteMs = 10000;

    CNotePane(CVeltoDoc& doc, Prompter& prompter, QWidget* parent = nullptr);
    ~CNotePane() override;

    // Shows this node's note; saves the shown note first if it was edited. Cheap when node is the one
    // already shown and its m_strNote has not changed behind the pane's back (the view calls it on
    // every document update). nullptr: empty and read-only.
    void ShowNode(CProjectNode* node);
    // Writes the shown note back now if it was edited since the last write (the view calls it before
    // every tree change, undo, save and close). A node no longer in the document's list is left alone.
    void SaveNote();
    void SetToolbarVisible(bool visible);
    // The document was opened read-only: the note can be read and copied, not edited.
    void SetReadOnly(bool readOnly);
    bool EditorHasFocus() const;
    void FocusEditor();
    // 32791/32792/32793 (checked by the selection), 32800, 32787, the list and indent commands
    // 32819 to 32822, and, only while the editor has the focus, 57643 undo, 57634 copy, 57635 cut,
    // 57637 paste. False for any other id.
    bool OnUpdateCommand(int id, CommandState& state);
    bool OnCommand(int id);
    QTextEdit* Editor() const;

    CProjectNode* ShownNode() const { return m_node; }
    // The context menu of the note (153) for the current selection; the caller shows and deletes it.
    QMenu* CreateContextMenu(QWidget* parent);
    void SetDialogs(NotePaneDialogs dialogs);
    // Who opens double-clicked hyperlinks; the desktop unless set. The pane does not own it.
    void SetLinkOpener(notetext::NoteLinkOpener* opener);
    // The clock of the change time stamp; tests fix it.
    void SetClock(std::function<CTime()> clock);

private:
    QWidget* CreateButtonRow();
    bool Editable() const;
    void ApplyEditable();
    void UpdateButtons();
    void RegisterCommands();
    bool IsRoutedHere(int id) const;
    // Every change through a button or menu ends alike: the note is saved and the focus goes back
    // to the text.
    void Change(const std::function<void()>& operation);

    void ToggleEffect(notetext::Effect effect);
    void ChooseColour();
    void StepSize(int points);
    void ChooseFont();
    void InsertHyperlink();

    void OnTextTyped(const QString& text);
    void OnDoubleClick();
    void ShowContextMenu(const QPoint& globalPos);
    void TellPicturesScaledDown(int count);
    QString ProjectFolder() const;

    CVeltoDoc& m_doc;
    Prompter& m_prompter;
    NoteEditor* m_editor;
    QWidget* m_buttonRow;
    std::array<QToolButton*, 14> m_buttons{};
    NotePaneDialogs m_dialogs;
    std::unique_ptr<notetext::NoteLinkOpener> m_desktopOpener;
    notetext::NoteLinkOpener* m_opener;
    std::function<CTime()> m_clock;

    CProjectNode* m_node = nullptr;
    // The note as the node held it when shown or last written: an unchanged node needs no reload,
    // and while the node still shares this text, finding that out costs no comparison of bytes.
    NoteText m_shownNote;
    bool m_readOnly = false;
    // The note commands, the edit commands and the format buttons.
    CommandMap m_commands;
};

} // namespace velto
