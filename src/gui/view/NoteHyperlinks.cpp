#include "view/NoteHyperlinks.h"

#include "common/Prompter.h"
#include "text/Hyperlink.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QTextBlock>
#include <QTextDocument>

#include <string_view>

namespace velto::notetext {
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

std::optional<NoteLink> FileLink(const QString& path, const QString& projectFolder, rtf::LinkKind kind) {
    const std::optional<QFileInfo> file = FindFile(path, projectFolder);
    if (!file)
        return std::nullopt;
    const bool executable = file->isFile() && file->isExecutable();
    // The name found is judged again: it is what the desktop gets, whatever the text said.
    if (kind == rtf::LinkKind::Document && (executable || rtf::IsProgramName(file->fileName().toStdString())))
        kind = rtf::LinkKind::Program;
    return NoteLink{QUrl::fromLocalFile(file->absoluteFilePath()),
                    QDir::toNativeSeparators(file->absolutePath()), file->fileName(), kind, executable};
}

const char* WhatItLeadsTo(rtf::LinkKind kind) {
    switch (kind) {
    case rtf::LinkKind::Program:
        return "einem Programm oder Skript";
    case rtf::LinkKind::NetworkPath:
        return "einem Pfad im Netzwerk";
    default:
        return "einer Adresse unbekannter Art";
    }
}

bool UserAgrees(Prompter& prompter, rtf::LinkKind kind, const QString& shown) {
    const std::string question =
        std::string("Der Hyperlink führt zu ") + WhatItLeadsTo(kind) + ":\n\n" + shown.toStdString() +
        "\n\nEine Notiz kann aus der Projektdatei eines anderen stammen. Öffnen Sie den Hyperlink nur, wenn "
        "Sie der Quelle vertrauen.\n\nMöchten Sie ihn wirklich öffnen?";
    return prompter.Ask(Prompter::kCaption, question, PromptButtons::YesNo, PromptIcon::Warning) ==
           PromptAnswer::Yes;
}

QString Shown(const NoteLink& link) {
    return link.folder.isEmpty() ? link.file
                                 : QDir::toNativeSeparators(QDir(link.folder).filePath(link.file));
}

// A program starts in its own folder, where it expects the files it comes with. A file that cannot
// be started after all (a document marked executable on a shared drive) and what the system does not
// start itself (a shortcut, an installer) go to the desktop.
bool Launch(const NoteLink& link, NoteLinkOpener& opener) {
    if (link.executable && opener.Start(link.url.toLocalFile(), link.folder))
        return true;
    return opener.Open(link.url);
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

bool DesktopLinkOpener::Start(const QString& program, const QString& folder) {
    return QProcess::startDetached(program, {}, folder);
}

std::optional<NoteLink> ResolveNoteLink(const QString& target, const QString& projectFolder) {
    const QString trimmed = target.trimmed();
    if (trimmed.isEmpty())
        return std::nullopt;
    const std::string utf8 = trimmed.toStdString();
    const rtf::LinkKind kind = rtf::KindOfLinkTarget(utf8);
    switch (kind) {
    case rtf::LinkKind::WebAddress:
        return NoteLink{QUrl(QString::fromStdString(rtf::WebAddressOf(utf8))), {}, trimmed, kind};
    case rtf::LinkKind::OtherScheme:
        return NoteLink{QUrl(trimmed), {}, trimmed, kind};
    case rtf::LinkKind::NetworkPath:
    case rtf::LinkKind::Program:
    case rtf::LinkKind::Document:
        break;
    }
    return FileLink(QString::fromStdString(rtf::LocalPathOf(utf8)), projectFolder, kind);
}

void OpenNoteLink(const QString& target, const QString& projectFolder, NoteLinkOpener& opener,
                  Prompter& prompter) {
    const QString trimmed = target.trimmed();
    // Merely looking a share up hands the user's login to its server, so the question comes first.
    const bool onNetwork = rtf::KindOfLinkTarget(trimmed.toStdString()) == rtf::LinkKind::NetworkPath;
    if (onNetwork && !UserAgrees(prompter, rtf::LinkKind::NetworkPath, trimmed))
        return;
    const std::optional<NoteLink> link = ResolveNoteLink(trimmed, projectFolder);
    if (link && !onNetwork && !rtf::OpensUnasked(link->kind) &&
        !UserAgrees(prompter, link->kind, Shown(*link)))
        return;
    if (!link || !Launch(*link, opener))
        prompter.Tell("Angewählter Hyperlink konnte nicht geöffnet werden!", Prompter::kCaption,
                      PromptIcon::Warning);
}

} // namespace velto::notetext
