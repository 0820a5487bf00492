#pragma once
// "Hyperlink einfügen": the target of a new hyperlink in a note, typed or picked with the file dialog.
#include <QDialog>

#include <functional>

class QLineEdit;
class QPushButton;

namespace velto {

class CHyperlinkDlg : public QDialog {
    Q_OBJECT
public:
    // Asks for a file to link to; an empty answer is a cancelled file dialog.
    using FileChooser = std::function<QString(QWidget* parent)>;

    // chooseFile: the file dialog unless given (tests give their own).
    explicit CHyperlinkDlg(QWidget* parent = nullptr, FileChooser chooseFile = {});
    // Starts the dialog with a target, selected so that typing replaces it.
    void SetTarget(const QString& target);
    // The target without surrounding blanks.
    QString Target() const;

private:
    void ChooseFile();
    void EnableOk();

    QLineEdit* m_target; // 1006
    QPushButton* m_file; // 1031 "Datei"
    QPushButton* m_ok = nullptr;
    FileChooser m_chooseFile;
};

} // namespace velto
