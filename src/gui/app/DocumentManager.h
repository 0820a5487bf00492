#pragma once
// Keeps the open projects of the main window: makes their documents with the configured note font,
// opens files (or activates the window that has one open already), new projects and saved states,
// keeps the recent files in step, and closes them all when the program ends.
#include "base/ShellState.h"

#include <QString>

#include <functional>
#include <memory>

class QMdiArea;

namespace velto {

class CChildFrame;
class CMainFrame;
class CVeltoDoc;
class CVeltoView;
class Desktop;
class RecentFileList;
class SettingsStore;

class DocumentManager {
public:
    DocumentManager(CMainFrame& frame, QMdiArea& mdi, Desktop& desktop, SettingsStore& settings,
                    RecentFileList& recent);

    // Opens a project file, or activates its window when it is open already. Null when it was not
    // opened (the user was told why).
    CChildFrame* OpenDocumentFile(const QString& path);
    // A backup or other saved state of a project, read-only in a window of its own to compare, with
    // no lock taken and no entry in the recent files. Null when it could not be read (told).
    CChildFrame* OpenStateReadOnly(const QString& statePath);
    // A new project with one root node.
    CChildFrame* NewDocument();
    // "Öffnen...": asks for a file and opens it.
    void ChooseAndOpen();
    // The index-th recent file; one that is gone leaves the list.
    void OpenRecent(int index);
    // Offers every modified project for saving, then closes them all. False when the user cancelled
    // or a project stays open; then nothing more is closed.
    bool CloseAllDocuments();

    // Makes the view of each new project window (the shell's own view unless set).
    using ViewFactory = std::function<CVeltoView*(CVeltoDoc&, const ShellState&)>;
    void SetViewFactory(ViewFactory factory) { m_viewFactory = std::move(factory); }

private:
    std::unique_ptr<CVeltoDoc> MakeDocument() const;
    CChildFrame* AddChild(std::unique_ptr<CVeltoDoc> doc, bool fromFile);
    CChildFrame* FindDocument(const QString& fileKey) const;

    CMainFrame& m_frame;
    QMdiArea& m_mdi;
    Desktop& m_desktop;
    SettingsStore& m_settings;
    RecentFileList& m_recent;
    ViewFactory m_viewFactory;
};

} // namespace velto
