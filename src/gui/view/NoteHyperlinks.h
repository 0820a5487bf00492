#pragma once
// The hyperlinks of a note: plain text in square brackets whose target is shown underlined and blue.
// Finding the one around a double click, formatting the one a typed "]" closes, inserting one, and
// opening its target with the desktop's application for it.
#include <QString>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QUrl>

#include <optional>

class Prompter;

namespace notetext {

// Underlined and blue (RGB 0,0,255), and nothing else.
QTextCharFormat LinkFormat();
// The target inside the brackets around the selection (a double click has selected a word there);
// nothing when the selection is not inside brackets or they hold only blanks.
std::optional<QString> LinkTargetAround(const QTextCursor& selection);
// When the character before the caret is a "]" that closes a "[", formats the text between them as a
// link. Returns whether it did; the caret stays where it is.
bool FormatClosedLink(const QTextCursor& caret);
// Replaces the selection with "[" + target + "]" and formats the target as a link, as one undo step;
// the cursor ends behind the "]".
void InsertLink(QTextCursor& cursor, const QString& target);

// Hands a link to the desktop. Tests put their own here, so that nothing is launched.
class NoteLinkOpener {
public:
    virtual ~NoteLinkOpener() = default;
    // False when the desktop could not open it.
    virtual bool Open(const QUrl& url) = 0;
};

class DesktopLinkOpener final : public NoteLinkOpener {
public:
    bool Open(const QUrl& url) override;
};

// A target made ready for the desktop.
struct NoteLink {
    QUrl url;
    QString folder; // the folder of a file; empty for a web address
    QString file;   // the name of a file; the whole address for a web address
    bool isProgram = false;
};

// A web address goes whole (a bare "www." one as http); a file path, also a "file:" URL, must name an
// existing file or folder: a relative one is taken from projectFolder, and where the separator is "/"
// a path written with backslashes (a project shared with Windows users) is tried with slashes too.
// Nothing when no such file exists.
std::optional<NoteLink> ResolveNoteLink(const QString& target, const QString& projectFolder);

// Opens the target. A program or script is opened only after the user agreed, since a note may come
// from someone else's project file. Tells "Angewählter Hyperlink konnte nicht geöffnet werden!" when
// the target cannot be opened.
void OpenNoteLink(const QString& target, const QString& projectFolder, NoteLinkOpener& opener,
                  Prompter& prompter);

} // namespace notetext
