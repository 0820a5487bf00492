#include "view/NoteHyperlinks.h"

#include "document/Prompter.h"
#include "text/Hyperlink.h"
#include "text/NoteLink.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QTextBlock>
#include <QTextDocument>

#include <string_view>

namespace notetext {
namespace {

std::u16string_view View(const QString& text) {
    return {reinterpret_cast<const char16_t*>(text.utf16()), size_t(text.size())};
}

void FormatAsLink(QTextDocument& document, int begin, int end) {
    QTextCursor target(&document);
    target.setPosition(begin);
    target.setPosition(end, QTextCursor::KeepAnchor);
    target.mergeCharFormat(LinkFormat());
}

std::optional<QFileInfo> FindFile(const QString& path, const QString& projectFolder) {
    QStringList candidates{path};
    if (QDir::separator() == QLatin1Char('/') && path.contains(QLatin1Char('\\')))
        candidates.append(QString(path).replace(QLatin1Char('\\'), QLatin1Char('/')));
    for (const QString& candidate : candidates) {
        const QFileInfo file(QDir(projectFolder).filePath(candidate));
        if (file.exists())
            return file;
    }
    return std::nullopt;
}

// Programs by name on any system, and on Unix files marked executable.
bool IsProgram(const QFileInfo& file) {
    return rtf::IsProgramName(file.fileName().toStdString()) || (file.isFile() && file.isExecutable());
}

std::optional<NoteLink> FileLink(const QString& path, const QString& projectFolder) {
    const std::optional<QFileInfo> file = FindFile(path, projectFolder);
    if (!file)
        return std::nullopt;
    return NoteLink{QUrl::fromLocalFile(file->absoluteFilePath()),
                    QDir::toNativeSeparators(file->absolutePath()), file->fileName(), IsProgram(*file)};
}

std::string ProgramQuestion(const NoteLink& link) {
    const QString path = QDir(link.folder).filePath(link.file);
    return "Der Hyperlink führt zu einem Programm oder Skript:\n\n" +
           QDir::toNativeSeparators(path).toStdString() +
           "\n\nEine Notiz kann aus der Projektdatei eines anderen stammen. Öffnen Sie es nur, wenn Sie "
           "der Quelle vertrauen.\n\nMöchten Sie es wirklich öffnen?";
}

} // namespace

QTextCharFormat LinkFormat() {
    QTextCharFormat format;
    format.setFontUnderline(true);
    format.setForeground(QColor(0, 0, 255));
    return format;
}

std::optional<QString> LinkTargetAround(const QTextCursor& selection) {
    const QTextBlock block = selection.document()->findBlock(selection.selectionStart());
    const QString text = block.text();
    const auto range = rtf::FindLinkAround(View(text), size_t(selection.selectionStart() - block.position()),
                                           size_t(selection.selectionEnd() - block.position()));
    if (!range)
        return std::nullopt;
    const QString target = text.mid(qsizetype(range->begin), qsizetype(range->end - range->begin));
    if (target.trimmed().isEmpty())
        return std::nullopt;
    return target;
}

bool FormatClosedLink(const QTextCursor& caret) {
    const QTextBlock block = caret.block();
    const auto range = rtf::FindLinkClosedAt(View(block.text()), size_t(caret.positionInBlock()));
    if (!range)
        return false;
    FormatAsLink(*caret.document(), block.position() + int(range->begin), block.position() + int(range->end));
    return true;
}

void InsertLink(QTextCursor& cursor, const QString& target) {
    cursor.beginEditBlock();
    cursor.insertText(QLatin1Char('[') + target + QLatin1Char(']'));
    const int closing = cursor.position() - 1;
    FormatAsLink(*cursor.document(), closing - int(target.size()), closing);
    cursor.endEditBlock();
}

bool DesktopLinkOpener::Open(const QUrl& url) {
    return QDesktopServices::openUrl(url);
}

std::optional<NoteLink> ResolveNoteLink(const QString& target, const QString& projectFolder) {
    const QString trimmed = target.trimmed();
    if (trimmed.isEmpty())
        return std::nullopt;
    const std::string utf8 = trimmed.toStdString();
    switch (rtf::KindOfLinkTarget(utf8)) {
    case rtf::LinkKind::WebAddress:
        return NoteLink{QUrl(QString::fromStdString(rtf::WebAddressOf(utf8))), {}, trimmed, false};
    case rtf::LinkKind::FileUrl:
        return FileLink(QUrl(trimmed).toLocalFile(), projectFolder);
    case rtf::LinkKind::FilePath:
        break;
    }
    return FileLink(trimmed, projectFolder);
}

void OpenNoteLink(const QString& target, const QString& projectFolder, NoteLinkOpener& opener,
                  Prompter& prompter) {
    const std::optional<NoteLink> link = ResolveNoteLink(target, projectFolder);
    if (link && link->isProgram &&
        prompter.Ask(Prompter::kCaption, ProgramQuestion(*link), PromptButtons::YesNo, PromptIcon::Warning) !=
            PromptAnswer::Yes)
        return;
    if (!link || !opener.Open(link->url))
        prompter.Tell("Angewählter Hyperlink konnte nicht geöffnet werden!", Prompter::kCaption,
                      PromptIcon::Warning);
}

} // namespace notetext
