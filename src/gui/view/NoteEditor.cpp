#include "view/NoteEditor.h"

#include "text/RtfReader.h"
#include "text/RtfWriter.h"
#include "view/NotePictures.h"
#include "view/NoteRichText.h"

#include <QContextMenuEvent>
#include <QImage>
#include <QKeyEvent>
#include <QMimeData>

#include <array>
#include <memory>

namespace velto {
namespace {

// The names word processors give RTF on the clipboard; the first is the one written.
constexpr std::array<const char*, 3> kRtfMimeTypes = {"text/rtf", "application/rtf", "text/richtext"};

QString RtfMimeTypeOf(const QMimeData& source) {
    for (const char* type : kRtfMimeTypes)
        if (source.hasFormat(QLatin1String(type)))
            return QLatin1String(type);
    return {};
}

} // namespace

NoteEditor::NoteEditor(QWidget* parent) : QTextEdit(parent) {}

void NoteEditor::keyPressEvent(QKeyEvent* event) {
    QTextEdit::keyPressEvent(event);
    if (!event->text().isEmpty() && !isReadOnly())
        emit textTyped(event->text());
}

void NoteEditor::keyReleaseEvent(QKeyEvent* event) {
    QTextEdit::keyReleaseEvent(event);
    emit keyReleased();
}

void NoteEditor::mouseDoubleClickEvent(QMouseEvent* event) {
    QTextEdit::mouseDoubleClickEvent(event);
    emit doubleClicked();
}

void NoteEditor::focusOutEvent(QFocusEvent* event) {
    QTextEdit::focusOutEvent(event);
    emit focusLost();
}

void NoteEditor::contextMenuEvent(QContextMenuEvent* event) {
    emit contextMenuWanted(event->globalPos());
}

QMimeData* NoteEditor::createMimeDataFromSelection() const {
    // Qt's own clipboard data names only the formats it makes itself; ours is a plain one.
    const std::unique_ptr<QMimeData> own(QTextEdit::createMimeDataFromSelection());
    auto* data = new QMimeData;
    data->setText(own->text());
    data->setHtml(own->html());
    const std::string rtf = rtf::WriteRtf(notetext::NoteOfSelection(textCursor()));
    data->setData(QLatin1String(kRtfMimeTypes.front()), QByteArray::fromStdString(rtf));
    return data;
}

bool NoteEditor::canInsertFromMimeData(const QMimeData* source) const {
    return !RtfMimeTypeOf(*source).isEmpty() || source->hasImage() ||
           QTextEdit::canInsertFromMimeData(source);
}

void NoteEditor::insertFromMimeData(const QMimeData* source) {
    // RTF keeps the most of what was copied; a copied picture comes as an image and as HTML naming
    // it, and only the image is sure to be at hand.
    int scaled = 0;
    if (const QString rtfType = RtfMimeTypeOf(*source); !rtfType.isEmpty())
        scaled = PasteRtf(source->data(rtfType));
    else if (source->hasImage())
        scaled = PasteImage(*source);
    else
        scaled = PasteHtmlOrText(source);
    ensureCursorVisible();
    if (scaled > 0)
        emit picturesScaledDown(scaled);
}

int NoteEditor::PasteRtf(const QByteArray& rtf) {
    rtf::Document note = rtf::ReadRtf(rtf.toStdString());
    const int scaled = notetext::ScaleDownLargePictures(note);
    QTextCursor cursor = textCursor();
    notetext::PasteNote(cursor, note);
    setTextCursor(cursor);
    return scaled;
}

int NoteEditor::PasteImage(const QMimeData& source) {
    const QImage image = qvariant_cast<QImage>(source.imageData());
    if (image.isNull())
        return 0;
    const notetext::PastedPicture pasted =
        notetext::PictureFromImage(image, source.data(QStringLiteral("image/jpeg")));
    QTextCursor cursor = textCursor();
    cursor.beginEditBlock();
    cursor.removeSelectedText();
    notetext::InsertPicture(cursor, rtf::PictureRef(pasted.picture), cursor.charFormat());
    cursor.endEditBlock();
    setTextCursor(cursor);
    return pasted.scaledDown ? 1 : 0;
}

int NoteEditor::PasteHtmlOrText(const QMimeData* source) {
    QTextCursor step = textCursor();
    const int start = step.selectionStart();
    step.beginEditBlock(); // the images taken over belong to the paste's step of undo
    QTextEdit::insertFromMimeData(source);
    const int scaled = notetext::AdoptPastedImages(*document(), start, textCursor().position());
    step.endEditBlock();
    return scaled;
}

} // namespace velto
