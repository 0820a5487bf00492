#pragma once
// One open project: its node list, the undo copy, the entry text histories and the view values
// stored in the file; opening with the lock-file dialogue, saving with backups, closing.
#include "document/ProjectFile.h"
#include "model/ProjectNode.h"

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

class Prompter;
class FileSystem;
class CVeltoDoc;

// A view of a document; told when the document changed ("update all views").
class CDocObserver {
public:
    virtual ~CDocObserver() = default;
    virtual void OnDocumentUpdated(CVeltoDoc& doc) = 0;
};

class CVeltoDoc {
public:
    // noteFont/noteFontSize: the settings "SchriftName" and "SchriftGroesse" at construction.
    // fileSystem: null for the real one; tests inject failures through their own.
    // userName: the login name written into the lock file; empty for the process owner's.
    CVeltoDoc(Prompter& prompter, std::string noteFont = "Arial", int noteFontSize = 12,
              FileSystem* fileSystem = nullptr, std::string userName = {});
    Prompter& GetPrompter() const { return m_prompter; }
    ~CVeltoDoc();
    CVeltoDoc(const CVeltoDoc&) = delete;
    CVeltoDoc& operator=(const CVeltoDoc&) = delete;

    // A new project: one root project node "Projektname" with the default note.
    bool OnNewDocument();
    // The lock-file dialogue, then the file. False when the document was not opened (the user
    // declined, or the file cannot be read; the reason was told through the prompter).
    bool OnOpenDocument(const std::string& path);
    // Lock file, safe write, backup rotation. False when nothing was saved (the reason was told).
    // The caller copies the current view values into m_view first.
    bool OnSaveDocument(const std::string& path);
    // The first half of "save as": releases the lock of the current path (unless read-only) and
    // lets a read-only document be saved under the name the user picks next.
    void PrepareSaveAs();
    // When the user cancels the file dialog of "save as": clears m_bSaveAsPending, which would
    // otherwise let a plain save overwrite a file opened read-only, and takes the lock back.
    void CancelSaveAs();
    // Opens a backup or another saved state of a project to compare, read-only and without touching
    // any lock file.
    bool OpenStateReadOnly(const std::string& statePath);
    // Makes a saved state (a backup) the content of this document and saves it to the document's
    // path, so that the current state becomes the newest backup. False (told) when the state cannot
    // be read or the save fails; the document is unchanged then.
    bool RestoreState(const std::string& statePath);
    // True when the document may be closed; false when running clocks were clocked out and the
    // document stays open so that the new hours can be saved.
    bool OnCloseDocument();

    const std::string& GetPathName() const { return m_strPathName; }
    // The file name, with " - SCHREIBGESCHÜTZT" when opened read-only; "Unbenannt" before a save.
    std::string GetTitle() const;
    bool IsModified() const { return m_bModified; }
    void SetModifiedFlag(bool modified = true);

    void AddObserver(CDocObserver* observer);
    void RemoveObserver(CDocObserver* observer);
    void UpdateAllViews();

    // Called by Close for every node whose clock runs, with that node current; the view shows
    // the clock-out dialog there.
    void SetClockOutHandler(std::function<void(CProjectNode&)> handler) { m_clockOut = std::move(handler); }

    // The one-level undo: BackupTree keeps a deep copy of the list, Undo swaps list and copy
    // (so a second Undo swaps back). Undo without a copy does nothing and returns false.
    void BackupTree();
    bool Undo();

    // The note a new node gets with this document's note settings.
    std::string DefaultNote() const;

    CProjectNode* m_pFirstNode = nullptr;
    CProjectNode* m_pBackupFirst = nullptr;
    std::string m_strNoteFont;
    int m_nNoteFontSize;
    std::array<std::string, 10> m_strAssigneeHistory;
    std::array<std::string, 10> m_strRemarkHistory;
    ProjectViewValues m_view;
    bool m_bReadOnly = false;
    bool m_bSaveAsPending = false;

private:
    enum class LockState {
        Held,     // this document created the lock file
        NotHeld,  // the lock file could not be created (told); the file opens for writing anyway
        ReadOnly, // someone else holds the lock and the user chose read-only
        Declined, // someone else holds the lock and the user chose not to open
    };
    LockState AcquireLock(const std::string& path);
    LockState AskAboutForeignLock(const std::string& path, const std::string& lockPath,
                                  const std::string& holder);
    // (Re)writes the lock file of path; false after telling the user why it failed.
    bool WriteLock(const std::string& path);
    // After a failed "save as": the lock written for the new name goes, the old one comes back.
    void AbandonSaveAs(const std::string& failedPath);
    // Reads the project straight from the file, never holding all of its bytes at once. -errno
    // when the file cannot be opened; errors while reading are in result.
    int ReadProjectFile(const std::string& path, ProjectContent& content, ReadResult& result);
    void TakeContent(ProjectContent&& content);
    // Reads a whole project file; false after telling the user why it cannot be read.
    bool ReadStateTold(const std::string& path, ProjectContent& content);
    // Hands the nodes, histories and view values over, leaving the document empty.
    ProjectContent ReleaseContent();
    void DeleteContents();
    void TellError(const std::string& text);

    Prompter& m_prompter;
    FileSystem* m_fs;
    std::unique_ptr<FileSystem> m_ownFs;
    std::string m_userName;
    std::string m_strPathName;
    bool m_bModified = false;
    std::vector<CDocObserver*> m_observers;
    std::function<void(CProjectNode&)> m_clockOut;
};
