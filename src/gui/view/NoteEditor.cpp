#include "view/NoteEditor.h"

#include <QContextMenuEvent>
#include <QKeyEvent>

namespace velto {

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

} // namespace velto
