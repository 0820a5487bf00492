#pragma once
// What the shell tests share: a desktop that answers from a script instead of showing dialogs, and
// a fixture that points every settings store at a fresh temporary folder.
#include "app/CChildFrame.h"
#include "app/CMainFrame.h"
#include "app/RecentFileList.h"
#include "base/Desktop.h"
#include "base/Settings.h"
#include "document/CVeltoDoc.h"
#include "support/ScriptedPrompter.h"

#include <QAction>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QMenu>
#include <QMenuBar>
#include <QSettings>
#include <QStandardPaths>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <deque>
#include <memory>
#include <ostream>
#include <vector>

namespace velto {

// Readable QStrings in failure messages.
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

// Points the data folder at a folder of the test while it runs, and back afterwards.
class DataDirOverride {
public:
    explicit DataDirOverride(const QString& folder) : m_previous(qgetenv("VELTO_DATA_DIR")) {
        qputenv("VELTO_DATA_DIR", QFile::encodeName(folder));
    }
    ~DataDirOverride() { qputenv("VELTO_DATA_DIR", m_previous); }

private:
    QByteArray m_previous;
};

// The entries of a menu, "-" for a separator.
inline QStringList MenuTexts(const QMenu& menu) {
    QStringList texts;
    for (QAction* action : menu.actions())
        texts << (action->isSeparator() ? QStringLiteral("-") : action->text());
    return texts;
}
inline QMenu* TopMenu(const QMenuBar* bar, const QString& title) {
    for (QAction* top : bar->actions())
        if (top->text() == title)
            return top->menu();
    return nullptr;
}
class FakeDesktop : public Desktop {
public:
    explicit FakeDesktop(QString programDir) : m_programDir(std::move(programDir)) {}

    Prompter& GetPrompter() override { return prompter; }
    QString ChooseFileToOpen(QWidget*) override { return Next(); }
    QString ChooseFileToSave(QWidget*, const QString& suggestion) override {
        suggestions.append(suggestion);
        return Next();
    }
    bool StartProgram(const QString& path) override {
        started.append(path);
        return true;
    }
    bool OpenDocument(const QString& path) override {
        opened.append(path);
        return true;
    }
    QString ProgramDir() const override { return m_programDir; }

    // The answers of the next file dialogs; an empty one is a cancelled dialog.
    void ChooseFiles(std::initializer_list<QString> paths) { m_files.insert(m_files.end(), paths); }

    ScriptedPrompter prompter;
    QStringList suggestions;
    QStringList started;
    QStringList opened;

private:
    QString Next() {
        if (m_files.empty())
            return {};
        QString next = m_files.front();
        m_files.pop_front();
        return next;
    }

    QString m_programDir;
    std::deque<QString> m_files;
};

class ShellTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(m_dir.isValid());
        QStandardPaths::setTestModeEnabled(true);
        UseSettingsFolder(m_dir.filePath("config"));
        QDir().mkpath(ProjectDir());
        recent = std::make_unique<RecentFileList>();
    }
    void TearDown() override {
        for (auto& frame : m_frames)
            CloseWithoutQuestions(*frame);
    }

    static void UseSettingsFolder(const QString& folder) {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder);
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder);
    }
    // A settings folder whose place is taken by a file can be neither read nor written.
    void UseUnusableSettingsFolder() {
        QFile blocker(TempPath("blocked"));
        ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
        blocker.close();
        UseSettingsFolder(TempPath("blocked"));
    }

    QString ProjectDir() const { return m_dir.filePath("projects"); }
    QString ProjectPath(const QString& name) const { return QDir(ProjectDir()).filePath(name); }
    QString TempPath(const QString& name) const { return m_dir.filePath(name); }

    // A main window as the program makes it, shown at a known size.
    CMainFrame& MakeFrame() {
        m_frames.push_back(std::make_unique<CMainFrame>(desktop, settings, *recent));
        CMainFrame& frame = *m_frames.back();
        frame.show();
        frame.resize(1000, 700);
        QCoreApplication::processEvents();
        return frame;
    }

    // Writes a new one-node project of that name into the project folder and returns its path.
    QString WriteProject(const QString& name) {
        const QString path = ProjectPath(name);
        ScriptedPrompter quiet;
        CVeltoDoc doc(quiet);
        EXPECT_TRUE(doc.OnNewDocument() && doc.OnSaveDocument(QFile::encodeName(path).toStdString()));
        doc.OnCloseDocument();
        return path;
    }
    // Values in the program's settings, as an earlier run left them.
    static void Store(std::initializer_list<std::pair<const char*, QVariant>> values) {
        QSettings stored("kolvarin", "Velto5");
        for (const auto& [key, value] : values)
            stored.setValue(key, value);
    }
    static QVariant Stored(const char* key) { return QSettings("kolvarin", "Velto5").value(key); }

    static void CloseWithoutQuestions(CMainFrame& frame) {
        for (CChildFrame* child : frame.Children())
            child->GetDocument().SetModifiedFlag(false);
        frame.Documents().CloseAllDocuments();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    QTemporaryDir m_dir;
    FakeDesktop desktop{m_dir.filePath("program")};
    SettingsStore settings{desktop.prompter};
    std::unique_ptr<RecentFileList> recent; // made once the settings folder is set
    std::vector<std::unique_ptr<CMainFrame>> m_frames;
};

} // namespace velto
