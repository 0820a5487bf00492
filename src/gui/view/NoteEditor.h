#pragma once
// The rich-text control of the note pane (control 137): a QTextEdit that tells the pane what it
// reacts to — text typed, a key let go, a double click after the word under it was selected, the
// focus lost, and the wish for a context menu. Its clipboard speaks RTF besides HTML and text, so that
// lists, pictures and tables go from note to note and to and from word processors as they are.
#include <QTextEdit>

namespace velto {

class NoteEditor : public QTextEdit {
    Q_OBJECT
public:
    explicit NoteEditor(QWidget* parent = nullptr);

signals:
    // After the editor has handled a key press that typed text.
    void textTyped(const QString& text);
    void keyReleased();
    // After the editor has handled the double click (and selected the word under it).
    void doubleClicked();
    void focusLost();
    void contextMenuWanted(const QPoint& globalPos);
    // A paste brought pictures larger than a note keeps; they were scaled down.
    void picturesScaledDown(int count);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    QMimeData* createMimeDataFromSelection() const override;
    bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    // Gives how many pictures had to be scaled down.
    int PasteRtf(const QByteArray& rtf);
    int PasteImage(const QMimeData& source);
    int PasteHtmlOrText(const QMimeData* source);
};

} // namespace velto
