#pragma once
// One open project: its node list, the undo copy, the entry text histories and the view values
// stored in the file; opening with the lock-file dialogue, saving with backups, closing.
#include "document/LockFile.h"
#include "document/ProjectFile.h"
#include "model/ProjectNode.h"

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace velto {

class Prompter;
class FileSystem;
class CVeltoDoc;

// A view of a document; told when the document changed ("update all views").
class DocObserver {
public:
    virtual ~DocObserver() = default;
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
    // The lock-file dialogue, the repair of a save that was killed, then the file. False when the
    // document was not opened (the user declined, or the file cannot be read; the reason was told).
    bool OnOpenDocument(const std::string& path);
    // Opens a backup or another saved state of a project to compare, read-only and without touching
    // any lock file.
    bool OpenStateReadOnly(const std::string& statePath);
    // Lock file, safe write, backup rotation. False when nothing was saved (the reason was told);
    // the document, its lock and its read-only state are then exactly as before.
    // The caller copies the current view values into m_view first.
    bool OnSaveDocument(const std::string& path);
    // Makes a saved state (a backup) the content of this document and saves it to the document's
    // path, so that the current state becomes the newest backup. False (told) when the state cannot
    // be read or the save fails; the document is unchanged then.
    bool RestoreState(const std::string& statePath);
    // "Save as": the next OnSaveDocument may write a read-only document under another name. The
    // lock of the current name is kept until the new file is saved.
    void PrepareSaveAs();
    // The user cancelled the file dialog of "save as".
    void CancelSaveAs();
    // True when the document may be closed (its lock file is gone then); false when running clocks
    // were clocked out and the document stays open, with its lock, so that the new hours can be saved.
    bool OnCloseDocument();

    const std::string& GetPathName() const { return m_strPathName; }
    // The file name, with " - SCHREIBGESCHÜTZT" when opened read-only; "Unbenannt" before a save.
    std::string GetTitle() const;
    bool IsModified() const { return m_bModified; }
    void SetModifiedFlag(bool modified = true);

    void AddObserver(DocObserver* observer);
    void RemoveObserver(DocObserver* observer);
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
        Held,     // this document holds the lock file
        ReadOnly, // someone else holds it, or it cannot be made: the file opens read-only
        Declined, // someone else holds the lock and the user chose not to open
    };
    LockState AcquireLock(const std::string& file);
    LockState AskAboutForeignLock(const std::string& file, const LockOwner& owner);
    LockState OfferLeftOverLock(const std::string& file, const LockOwner& owner);
    // The lock for saving to file: the one held when it is file's, else a new one in `fresh`.
    // False after telling why the file may not be written.
    bool LockForSaving(const std::string& file, ProjectLock& fresh);
    bool RefuseForeignLock(const std::string& file);
    // Offers back each state a killed save left that is newer than the file.
    void OfferInterruptedSaves(const std::string& file);
    // Reads a whole project file; false after telling the user why it cannot be read.
    bool ReadStateTold(const std::string& path, ProjectContent& content);
    void TakeContent(ProjectContent&& content);
    // Hands the nodes, histories and view values over, leaving the document empty.
    ProjectContent ReleaseContent();
    void DeleteContents();
    void TellError(const std::string& text);

    Prompter& m_prompter;
    std::unique_ptr<FileSystem> m_ownFs;
    FileSystem* m_fs;
    std::string m_userName;
    std::string m_strPathName;
    ProjectLock m_lock;
    bool m_bModified = false;
    std::vector<DocObserver*> m_observers;
    std::function<void(CProjectNode&)> m_clockOut;
};

} // namespace velto
