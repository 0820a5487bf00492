#include "view/CNotePane.h"

#include "base/ColorRef.h"
#include "base/CommandIds.h"
#include "base/Cp1252Text.h"
#include "base/ProjectFiles.h"
#include "dialogs/CHyperlinkDlg.h"
#include "document/CVeltoDoc.h"
#include "model/ProjectNode.h"
#include "text/NoteFormat.h"
#include "text/RtfReader.h"
#include "text/RtfWriter.h"
#include "view/NoteBlocks.h"
#include "view/NoteEditor.h"
#include "view/NoteHyperlinks.h"
#include "view/NoteIcons.h"
#include "view/NotePictures.h"
#include "view/NoteRichText.h"
#include "view/NoteSelection.h"
#include "view/ViewContext.h"

#include <QAction>
#include <QFileInfo>
#include <QFontDialog>
#include <QHBoxLayout>
#include <QMainWindow>
#include <QMenu>
#include <QStatusBar>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace velto {

using notetext::Effect;

namespace {

struct Button {
    int id;
    const char* toolTip;
    bool checkable; // shows the state of the selection
};

constexpr std::array<Button, 14> kButtons = {{
    {CNotePane::kBoldButton, "Fett.", true},
    {CNotePane::kItalicButton, "Kursiv", true},
    {CNotePane::kUnderlineButton, "Unterstrichen", true},
    {CNotePane::kColourButton, "Schriftfarbe", false},
    {CNotePane::kAlignLeftButton, "Textausrichtung links", true},
    {CNotePane::kAlignCentreButton, "Textausrichtung mitte", true},
    {CNotePane::kAlignRightButton, "Textausrichtung rechts", true},
    {CNotePane::kLargerButton, "Text größer", false},
    {CNotePane::kSmallerButton, "Text kleiner", false},
    {CNotePane::kHyperlinkButton, "Hyperlink", false},
    // The list and indent buttons carry the ids of their commands.
    {cmd::NoteBullets, "Aufzählung", true},
    {cmd::NoteNumbering, "Nummerierung", true},
    {cmd::NoteIndentLess, "Einzug verkleinern", false},
    {cmd::NoteIndentMore, "Einzug vergrößern", false},
}};

// The context menu of the note; 0 is a separator.
struct MenuItem {
    int id;
    const char* label;
};
constexpr MenuItem kContextMenu[] = {
    {cmd::NoteBold, "Fett"},
    {cmd::NoteItalic, "Kursiv"},
    {cmd::NoteUnderline, "Unterstrichen"},
    {cmd::NoteFont, "Zeichen..."},
    {cmd::InsertHyperlink, "&Hyperlink einfügen..."},
    {0, ""},
    {cmd::NoteBullets, "Auf&zählung"},
    {cmd::NoteNumbering, "&Nummerierung"},
    {cmd::NoteIndentMore, "Einzug ver&größern"},
    {cmd::NoteIndentLess, "Einzug ver&kleinern"},
    {0, ""},
    {cmd::EditCut, "Ausschneiden"},
    {cmd::EditCopy, "Kopieren"},
    {cmd::EditPaste, "Einfügen"},
};

std::optional<Effect> EffectOf(int id) {
    switch (id) {
    case cmd::NoteBold:
    case CNotePane::kBoldButton:
        return Effect::Bold;
    case cmd::NoteItalic:
    case CNotePane::kItalicButton:
        return Effect::Italic;
    case cmd::NoteUnderline:
    case CNotePane::kUnderlineButton:
        return Effect::Underline;
    default:
        return std::nullopt;
    }
}

std::optional<Qt::Alignment> AlignmentOf(int id) {
    switch (id) {
    case CNotePane::kAlignLeftButton:
        return Qt::AlignLeft;
    case CNotePane::kAlignCentreButton:
        return Qt::AlignHCenter;
    case CNotePane::kAlignRightButton:
        return Qt::AlignRight;
    default:
        return std::nullopt;
    }
}

bool IsEditCommand(int id) {
    return id == cmd::EditUndo || id == cmd::EditCopy || id == cmd::EditCut || id == cmd::EditPaste;
}

std::optional<rtf::ListKind> ListKindOf(int id) {
    switch (id) {
    case cmd::NoteBullets:
        return rtf::ListKind::Bullet;
    case cmd::NoteNumbering:
        return rtf::ListKind::Decimal;
    default:
        return std::nullopt;
    }
}

bool IsNoteCommand(int id) {
    return id == cmd::NoteBold || id == cmd::NoteItalic || id == cmd::NoteUnderline || id == cmd::NoteFont ||
           id == cmd::InsertHyperlink || ListKindOf(id) || id == cmd::NoteIndentMore ||
           id == cmd::NoteIndentLess;
}

// A list item's kind counts as that of its list: bullets of any shape, numbers of any style.
bool IsListOfKind(const QTextCursor& cursor, rtf::ListKind kind) {
    const std::optional<rtf::ListKind> shown = notetext::ListKindAt(cursor);
    return shown && (*shown == rtf::ListKind::Bullet) == (kind == rtf::ListKind::Bullet);
}

bool Contains(const CProjectNode* first, const CProjectNode* node) {
    for (const CProjectNode* p = first; p; p = p->m_pNext)
        if (p == node)
            return true;
    return false;
}

std::optional<QFont> ChooseFontWithDialog(QWidget* parent, const QFont& font) {
    bool ok = false;
    const QFont chosen = QFontDialog::getFont(&ok, font, parent, QStringLiteral("Zeichen"));
    return ok ? std::optional<QFont>(chosen) : std::nullopt;
}

std::optional<QString> AskHyperlinkWithDialog(QWidget* parent, const QString& selected) {
    CHyperlinkDlg dialog(parent);
    dialog.SetTarget(selected);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return dialog.Target();
}

} // namespace

CNotePane::CNotePane(CVeltoDoc& doc, Prompter& prompter, QWidget* parent)
    : QWidget(parent), m_doc(doc), m_prompter(prompter), m_editor(new NoteEditor(this)),
      m_desktopOpener(std::make_unique<notetext::DesktopLinkOpener>()), m_opener(m_desktopOpener.get()),
      m_clock(&CTime::GetCurrentTime) {
    setObjectName("notePane");
    m_editor->setObjectName("note137");
    // Named for screen readers; a tool tip would keep popping up over the text being written.
    m_editor->setAccessibleName("Notiz");
    m_editor->document()->setDefaultFont(
        QFont(ToQString(m_doc.m_strNoteFont), std::max(1, m_doc.m_nNoteFontSize)));
    m_buttonRow = CreateButtonRow();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addWidget(m_buttonRow);
    layout->addWidget(m_editor, 1);
    SetDialogs({});

    connect(m_editor, &NoteEditor::textTyped, this, &CNotePane::OnTextTyped);
    connect(m_editor, &NoteEditor::keyReleased, this, &CNotePane::SaveNote);
    connect(m_editor, &NoteEditor::focusLost, this, &CNotePane::SaveNote);
    connect(m_editor, &NoteEditor::doubleClicked, this, &CNotePane::OnDoubleClick);
    connect(m_editor, &NoteEditor::contextMenuWanted, this, &CNotePane::ShowContextMenu);
    connect(m_editor, &NoteEditor::picturesScaledDown, this, &CNotePane::TellPicturesScaledDown);
    connect(m_editor, &QTextEdit::cursorPositionChanged, this, &CNotePane::UpdateButtons);
    connect(m_editor, &QTextEdit::selectionChanged, this, &CNotePane::UpdateButtons);
    connect(m_editor, &QTextEdit::currentCharFormatChanged, this, &CNotePane::UpdateButtons);

    // The usual keys of text editors; the program's own shortcuts leave them free.
    const std::array<std::pair<int, QKeySequence>, 7> keys = {
        {{cmd::NoteBold, QKeySequence(Qt::CTRL | Qt::Key_B)},
         {cmd::NoteItalic, QKeySequence(Qt::CTRL | Qt::Key_I)},
         {cmd::NoteUnderline, QKeySequence(Qt::CTRL | Qt::Key_U)},
         {cmd::NoteBullets, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_L)},
         {cmd::NoteNumbering, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_N)},
         {cmd::NoteIndentMore, QKeySequence(Qt::CTRL | Qt::Key_M)},
         {cmd::NoteIndentLess, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_M)}}};
    for (const auto& [id, key] : keys) {
        auto* action = new QAction(m_editor);
        action->setShortcut(key);
        action->setShortcutContext(Qt::WidgetShortcut);
        connect(action, &QAction::triggered, this, [this, id = id] { m_commands.OnCommand(id); });
        m_editor->addAction(action);
    }
    RegisterCommands();
    ApplyEditable();
}

CNotePane::~CNotePane() {
    // The editor may report a focus loss while it is destroyed, when this pane is half gone.
    disconnect(m_editor, nullptr, this, nullptr);
}

QWidget* CNotePane::CreateButtonRow() {
    auto* row = new QWidget(this);
    row->setObjectName("noteButtons");
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(2, 0, 2, 0);
    layout->setSpacing(1);
    for (size_t i = 0; i < kButtons.size(); ++i) {
        const Button& spec = kButtons[i];
        auto* button = new QToolButton(row);
        button->setObjectName(QStringLiteral("button%1").arg(spec.id));
        button->setToolTip(QString::fromUtf8(spec.toolTip));
        button->setIcon(NoteButtonIcon(spec.id));
        button->setIconSize(QSize(16, 16));
        button->setAutoRaise(true);
        button->setCheckable(spec.checkable);
        // Clicking a button leaves the selection in the text where it is.
        button->setFocusPolicy(Qt::NoFocus);
        connect(button, &QToolButton::clicked, this, [this, id = spec.id] { m_commands.OnCommand(id); });
        layout->addWidget(button);
        m_buttons[i] = button;
    }
    layout->addStretch(1);
    return row;
}

void CNotePane::ShowNode(CProjectNode* node) {
    if (node == m_node && (!node || node->m_strNote == m_shownNote))
        return;
    SaveNote();
    m_node = node;
    m_shownNote = node ? node->m_strNote : NoteText();
    notetext::ShowNote(*m_editor->document(), rtf::ReadRtf(m_shownNote.str()));
    m_editor->moveCursor(QTextCursor::Start);
    ApplyEditable();
    UpdateButtons();
}

void CNotePane::SaveNote() {
    if (!m_node || !m_editor->document()->isModified() || !Contains(m_doc.m_pFirstNode, m_node))
        return;
    m_shownNote = rtf::WriteRtf(notetext::TakeNote(*m_editor->document()));
    m_node->m_strNote = m_shownNote;
    m_node->m_timeChanged = m_clock();
    m_doc.SetModifiedFlag();
    m_editor->document()->setModified(false);
}

void CNotePane::SetToolbarVisible(bool visible) {
    m_buttonRow->setVisible(visible);
}

void CNotePane::SetReadOnly(bool readOnly) {
    m_readOnly = readOnly;
    ApplyEditable();
}

bool CNotePane::EditorHasFocus() const {
    return m_editor->hasFocus();
}

void CNotePane::FocusEditor() {
    m_editor->setFocus(Qt::TabFocusReason);
}

QTextEdit* CNotePane::Editor() const {
    return m_editor;
}

void CNotePane::SetDialogs(NotePaneDialogs dialogs) {
    if (!dialogs.chooseColour)
        dialogs.chooseColour = &ChooseColourWithDialog;
    if (!dialogs.chooseFont)
        dialogs.chooseFont = &ChooseFontWithDialog;
    if (!dialogs.askHyperlink)
        dialogs.askHyperlink = &AskHyperlinkWithDialog;
    m_dialogs = std::move(dialogs);
}

void CNotePane::SetLinkOpener(notetext::NoteLinkOpener* opener) {
    m_opener = opener ? opener : m_desktopOpener.get();
}

void CNotePane::SetClock(std::function<CTime()> clock) {
    m_clock = clock ? std::move(clock) : std::function<CTime()>(&CTime::GetCurrentTime);
}

bool CNotePane::Editable() const {
    return m_node && !m_readOnly;
}

void CNotePane::ApplyEditable() {
    const bool editable = Editable();
    m_editor->setReadOnly(!editable);
    if (!editable)
        m_editor->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    for (QToolButton* button : m_buttons)
        button->setEnabled(editable);
}

void CNotePane::UpdateButtons() {
    const QTextCursor cursor = m_editor->textCursor();
    const Qt::Alignment alignment =
        m_editor->alignment() & (Qt::AlignLeft | Qt::AlignHCenter | Qt::AlignRight | Qt::AlignJustify);
    for (size_t i = 0; i < kButtons.size(); ++i) {
        const int id = kButtons[i].id;
        if (const auto effect = EffectOf(id))
            m_buttons[i]->setChecked(notetext::EffectOfSelection(cursor, *effect) == true);
        else if (const auto kind = ListKindOf(id))
            m_buttons[i]->setChecked(IsListOfKind(cursor, *kind));
        else if (const auto shown = AlignmentOf(id))
            m_buttons[i]->setChecked(alignment == *shown ||
                                     (id == kAlignLeftButton && !(alignment & ~Qt::AlignLeft)));
    }
}

void CNotePane::RegisterCommands() {
    // The format buttons run the same commands as the note menu; both are registered here.
    const auto editable = [this](CommandState& state) { state.enabled = Editable(); };
    const auto editing = [this](std::function<void()> operation) {
        return [this, operation = std::move(operation)] {
            if (Editable())
                Change(operation);
        };
    };
    const std::array<std::tuple<int, int, Effect>, 3> effects = {{
        {cmd::NoteBold, kBoldButton, Effect::Bold},
        {cmd::NoteItalic, kItalicButton, Effect::Italic},
        {cmd::NoteUnderline, kUnderlineButton, Effect::Underline},
    }};
    for (const auto& [command, button, effect] : effects) {
        const auto toggle = editing([this, effect = effect] { ToggleEffect(effect); });
        const auto update = [this, effect = effect](CommandState& state) {
            state.enabled = Editable();
            state.checked = notetext::EffectOfSelection(m_editor->textCursor(), effect) == true;
        };
        m_commands.Add(command, toggle, update);
        m_commands.Add(button, toggle, update);
    }
    for (int button : {kAlignLeftButton, kAlignCentreButton, kAlignRightButton})
        m_commands.Add(
            button, editing([this, alignment = *AlignmentOf(button)] { m_editor->setAlignment(alignment); }),
            editable);
    for (int command : {cmd::NoteBullets, cmd::NoteNumbering}) {
        const rtf::ListKind kind = *ListKindOf(command);
        m_commands.Add(command, editing([this, kind] {
                           QTextCursor cursor = m_editor->textCursor();
                           notetext::ToggleList(cursor, kind);
                       }),
                       [this, kind](CommandState& state) {
                           state.enabled = Editable();
                           state.checked = IsListOfKind(m_editor->textCursor(), kind);
                       });
    }
    for (const auto& [command, direction] :
         {std::pair(cmd::NoteIndentMore, 1), std::pair(cmd::NoteIndentLess, -1)})
        m_commands.Add(command, editing([this, direction = direction] {
                           QTextCursor cursor = m_editor->textCursor();
                           notetext::StepIndent(cursor, direction);
                       }),
                       editable);
    m_commands.Add(kColourButton, editing([this] { ChooseColour(); }), editable);
    m_commands.Add(kLargerButton, editing([this] { StepSize(rtf::kSizeStepPoints); }), editable);
    m_commands.Add(kSmallerButton, editing([this] { StepSize(-rtf::kSizeStepPoints); }), editable);
    m_commands.Add(kHyperlinkButton, editing([this] { InsertHyperlink(); }), editable);
    m_commands.Add(cmd::InsertHyperlink, editing([this] { InsertHyperlink(); }), editable);
    m_commands.Add(cmd::NoteFont, editing([this] { ChooseFont(); }), editable);

    m_commands.Add(cmd::EditUndo, editing([this] { m_editor->undo(); }), [this](CommandState& state) {
        state.enabled = Editable() && m_editor->document()->isUndoAvailable();
    });
    m_commands.Add(cmd::EditCut, editing([this] { m_editor->cut(); }), [this](CommandState& state) {
        state.enabled = Editable() && m_editor->textCursor().hasSelection();
    });
    m_commands.Add(cmd::EditPaste, editing([this] { m_editor->paste(); }),
                   [this](CommandState& state) { state.enabled = Editable() && m_editor->canPaste(); });
    // Copying changes nothing, so it works in a read-only project too.
    m_commands.Add(
        cmd::EditCopy, [this] { m_editor->copy(); },
        [this](CommandState& state) { state.enabled = m_editor->textCursor().hasSelection(); });
}

bool CNotePane::IsRoutedHere(int id) const {
    // The note's commands always; the edit commands only while the note has the focus. The
    // buttons' ids are the pane's own, not the router's.
    return IsNoteCommand(id) || (IsEditCommand(id) && EditorHasFocus());
}

bool CNotePane::OnUpdateCommand(int id, CommandState& state) {
    return IsRoutedHere(id) && m_commands.OnUpdateCommand(id, state);
}

bool CNotePane::OnCommand(int id) {
    return IsRoutedHere(id) && m_commands.OnCommand(id);
}

void CNotePane::Change(const std::function<void()>& operation) {
    operation();
    SaveNote();
    m_editor->setFocus(Qt::OtherFocusReason);
    UpdateButtons();
}

void CNotePane::ToggleEffect(Effect effect) {
    const bool on = notetext::ToggledEffect(notetext::EffectOfSelection(m_editor->textCursor(), effect));
    m_editor->mergeCurrentCharFormat(notetext::EffectFormat(effect, on));
}

void CNotePane::ChooseColour() {
    const rtf::CharFormat current =
        notetext::ToNoteFormat(notetext::FormatOfSelection(m_editor->textCursor()));
    const std::optional<int> chosen = m_dialogs.chooseColour(this, int(current.colour.value_or(0)));
    if (!chosen)
        return;
    // A chosen colour replaces the automatic one.
    QTextCharFormat colour;
    colour.setForeground(ColorFromColorRef(*chosen));
    m_editor->mergeCurrentCharFormat(colour);
}

void CNotePane::StepSize(int points) {
    const int halfPoints = notetext::HalfPointsOf(notetext::FormatOfSelection(m_editor->textCursor()));
    QTextCharFormat size;
    notetext::SetHalfPoints(size, rtf::StepSize(halfPoints, points));
    m_editor->mergeCurrentCharFormat(size);
}

void CNotePane::ChooseFont() {
    const QTextCharFormat current = notetext::FormatOfSelection(m_editor->textCursor());
    const std::optional<QFont> chosen =
        m_dialogs.chooseFont(this, current.font().resolve(m_editor->document()->defaultFont()));
    if (!chosen)
        return;
    QTextCharFormat format;
    format.setFontFamilies({chosen->family()});
    if (chosen->pointSizeF() > 0)
        notetext::SetHalfPoints(format, int(std::lround(chosen->pointSizeF() * 2)));
    format.setFontWeight(chosen->bold() ? QFont::Bold : QFont::Normal);
    format.setFontItalic(chosen->italic());
    format.setFontUnderline(chosen->underline());
    format.setFontStrikeOut(chosen->strikeOut());
    m_editor->mergeCurrentCharFormat(format);
}

void CNotePane::InsertHyperlink() {
    // Selected text that could be a target (a path or an address typed without brackets) is offered.
    const QString selected = m_editor->textCursor().selectedText().trimmed();
    const bool oneLine =
        !selected.contains(QChar::ParagraphSeparator) && !selected.contains(QChar::LineSeparator);
    const std::optional<QString> target = m_dialogs.askHyperlink(this, oneLine ? selected : QString());
    if (!target || target->isEmpty())
        return;
    QTextCursor cursor = m_editor->textCursor();
    notetext::InsertLink(cursor, *target);
    m_editor->setTextCursor(cursor);
}

void CNotePane::OnTextTyped(const QString& text) {
    // Formatted as soon as the bracket is typed (the note is saved when the key comes up), so that
    // fast typing cannot move the caret away from it first. The typed text decides, not the key:
    // "]" lies on different keys in different layouts.
    if (text.endsWith(QLatin1Char(']')))
        notetext::FormatClosedLink(m_editor->textCursor());
}

void CNotePane::OnDoubleClick() {
    if (const std::optional<QString> target = notetext::LinkTargetAround(m_editor->textCursor()))
        notetext::OpenNoteLink(*target, ProjectFolder(), *m_opener, m_prompter);
}

void CNotePane::ShowContextMenu(const QPoint& globalPos) {
    std::unique_ptr<QMenu> menu(CreateContextMenu(this));
    menu->exec(globalPos);
}

QMenu* CNotePane::CreateContextMenu(QWidget* parent) {
    auto* menu = new QMenu(parent);
    menu->setObjectName("menu153");
    for (const MenuItem& item : kContextMenu) {
        if (item.id == 0) {
            menu->addSeparator();
            continue;
        }
        QAction* action = menu->addAction(QString::fromUtf8(item.label));
        action->setObjectName(QStringLiteral("command%1").arg(item.id));
        CommandState state;
        m_commands.OnUpdateCommand(item.id, state);
        action->setEnabled(state.enabled);
        action->setCheckable(EffectOf(item.id).has_value() || ListKindOf(item.id).has_value());
        action->setChecked(state.checked);
        connect(action, &QAction::triggered, this, [this, id = item.id] { m_commands.OnCommand(id); });
    }
    return menu;
}

void CNotePane::TellPicturesScaledDown(int count) {
    auto* frame = qobject_cast<QMainWindow*>(window());
    if (!frame)
        return;
    const QString message =
        count == 1
            ? QStringLiteral("Das eingefügte Bild war größer als %1 × %1 Pixel und wurde verkleinert.")
            : QStringLiteral("%2 eingefügte Bilder waren größer als %1 × %1 Pixel und wurden verkleinert.");
    frame->statusBar()->showMessage(message.arg(notetext::kLargestPastedPixels).arg(count), kStatusNoteMs);
}

QString CNotePane::ProjectFolder() const {
    const std::string& path = m_doc.GetPathName();
    return path.empty() ? QString() : QFileInfo(FromCorePath(path)).absolutePath();
}

} // namespace velto
