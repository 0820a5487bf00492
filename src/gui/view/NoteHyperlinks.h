#pragma once
// The hyperlinks of a note: plain text in square brackets whose target is shown underlined and blue.
// Finding the one around a double click, formatting the one a typed "]" closes, inserting one, and
// opening its target with the desktop's application for it.
#include "text/NoteLink.h"

#include <QString>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QUrl>

#include <optional>

namespace velto {

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
    // Starts a program with folder as its working folder; false when it could not be started. An
    // opener that starts nothing itself leaves programs to Open.
    virtual bool Start(const QString& /*program*/, const QString& /*folder*/) { return false; }
};

class DesktopLinkOpener final : public NoteLinkOpener {
public:
    bool Open(const QUrl& url) override;
    bool Start(const QString& program, const QString& folder) override;
};

// A target made ready for the desktop.
struct NoteLink {
    QUrl url;
    QString folder; // the folder of a file; empty for an address
    QString file;   // the name of a file; the whole address for an address
    rtf::LinkKind kind = rtf::LinkKind::Document;
    bool executable = false; // a file the system marks as executable, which is started, not opened
};

// An address goes whole (a bare "www." one as http); a file path, also a "file:" URL, must name an
// existing file or folder: a relative one is taken from projectFolder, and where the separator is "/"
// a path written with backslashes (a project shared with Windows users) is tried with slashes too.
// Nothing when no such file exists. Looks at the file system, a network path too.
std::optional<NoteLink> ResolveNoteLink(const QString& target, const QString& projectFolder);

// Opens the target. Whatever is not an address for the browser or the mail program or a file that
// merely shows opens only after the user agreed, since a note may come from someone else's project
// file; a network path is asked about before it is looked up. Tells "Angewählter Hyperlink konnte
// nicht geöffnet werden!" when the target cannot be opened.
void OpenNoteLink(const QString& target, const QString& projectFolder, NoteLinkOpener& opener,
                  Prompter& prompter);

} // namespace notetext

} // namespace velto
