#include "document/CVeltoDoc.h"

#include "document/LockFile.h"
#include "document/LoginName.h"
#include "document/Prompter.h"
#include "document/SafeSave.h"
#include "io/FileSystem.h"
#include "model/NodeList.h"
#include "text/DefaultNote.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <utility>

namespace {

// A lock file that vanishes and reappears between the check and the creation is asked about again,
// but not forever.
constexpr int kLockAttempts = 3;

} // namespace

CVeltoDoc::CVeltoDoc(Prompter& prompter, std::string noteFont, int noteFontSize, FileSystem* fileSystem,
                     std::string userName)
    : m_strNoteFont(std::move(noteFont)), m_nNoteFontSize(noteFontSize), m_prompter(prompter),
      m_fs(fileSystem), m_userName(userName.empty() ? CurrentLoginName() : std::move(userName)) {
    if (!m_fs) {
        m_ownFs = std::make_unique<PosixFileSystem>();
        m_fs = m_ownFs.get();
    }
}

CVeltoDoc::~CVeltoDoc() {
    FreeNodeList(m_pFirstNode);
    FreeNodeList(m_pBackupFirst);
}

// ---- New and open ----

bool CVeltoDoc::OnNewDocument() {
    DeleteContents();
    auto* root = new CProjectNode();
    root->m_strTitle = "Projektname";
    root->m_strNote = DefaultNote();
    m_pFirstNode = root;
    m_strPathName.clear();
    m_bReadOnly = false;
    m_bSaveAsPending = false;
    m_bModified = false;
    return true;
}

bool CVeltoDoc::OnOpenDocument(const std::string& path) {
    const LockState lock = AcquireLock(path);
    if (lock == LockState::Declined)
        return false;
    ProjectContent content;
    ReadResult result;
    const int opened = ReadProjectFile(path, content, result);
    if (opened < 0 || result.status == ReadStatus::Error) {
        // A document that does not open must not leave its lock behind.
        if (lock == LockState::Held)
            m_fs->Remove(LockFilePath(path));
        TellError(opened < 0 ? "Die Datei \"" + path +
                                   "\" kann nicht geöffnet werden: " + FileErrorReason(opened) + "."
                             : result.Message(path));
        return false;
    }
    if (result.status == ReadStatus::WrongFormat)
        m_prompter.Tell("Falsches Dateiformat!");

    TakeContent(std::move(content));
    m_strPathName = path;
    m_bReadOnly = lock == LockState::ReadOnly;
    m_bSaveAsPending = false;
    m_bModified = false;
    return true;
}

bool CVeltoDoc::OpenStateReadOnly(const std::string& statePath) {
    ProjectContent content;
    if (!ReadStateTold(statePath, content))
        return false;
    TakeContent(std::move(content));
    m_strPathName = statePath;
    m_bReadOnly = true;
    m_bSaveAsPending = false;
    m_bModified = false;
    return true;
}

bool CVeltoDoc::RestoreState(const std::string& statePath) {
    ProjectContent content;
    if (!ReadStateTold(statePath, content))
        return false;
    // The current content stays at hand until the restored one is safely saved.
    ProjectContent current = ReleaseContent();
    const bool wasModified = m_bModified;
    TakeContent(std::move(content));
    if (OnSaveDocument(m_strPathName))
        return true;
    TakeContent(std::move(current));
    m_bModified = wasModified;
    return false;
}

bool CVeltoDoc::ReadStateTold(const std::string& path, ProjectContent& content) {
    ReadResult result;
    const int opened = ReadProjectFile(path, content, result);
    if (opened < 0 || result.status == ReadStatus::Error) {
        TellError(opened < 0 ? "Die Datei \"" + path +
                                   "\" kann nicht geöffnet werden: " + FileErrorReason(opened) + "."
                             : result.Message(path));
        return false;
    }
    return true;
}

ProjectContent CVeltoDoc::ReleaseContent() {
    ProjectContent content;
    content.view = m_view;
    content.assigneeHistory = m_strAssigneeHistory;
    content.remarkHistory = m_strRemarkHistory;
    content.firstNode = std::exchange(m_pFirstNode, nullptr);
    return content;
}

int CVeltoDoc::ReadProjectFile(const std::string& path, ProjectContent& content, ReadResult& result) {
    const int fd = m_fs->Open(path, O_RDONLY);
    if (fd < 0)
        return fd;
    const int64_t size = m_fs->FileSize(fd);
    if (size >= 0)
        result = ReadProject(
            uint64_t(size),
            [&](uint8_t* buffer, size_t count) { return int64_t(m_fs->Read(fd, buffer, count)); }, content);
    m_fs->Close(fd);
    return size < 0 ? int(size) : 0;
}

CVeltoDoc::LockState CVeltoDoc::AcquireLock(const std::string& path) {
    const std::string lockPath = LockFilePath(path);
    for (int attempt = 0; attempt < kLockAttempts; ++attempt) {
        std::string holder;
        const int read = ReadLockHolder(*m_fs, lockPath, holder);
        if (read == 0)
            return AskAboutForeignLock(path, lockPath, holder);
        if (read != -ENOENT)
            break;
        // Created only when absent, so that of two people opening the project at the same moment
        // exactly one gets to edit it; the other is asked about the first one's lock.
        const int created = WriteFileBytes(*m_fs, lockPath, LockRecord(m_userName), CreateMode::Exclusive);
        if (created == 0)
            return LockState::Held;
        if (created != -EEXIST)
            break;
    }
    TellError("Datei kann nicht geöffnet werden!");
    return LockState::NotHeld;
}

CVeltoDoc::LockState CVeltoDoc::AskAboutForeignLock(const std::string& path, const std::string& lockPath,
                                                    const std::string& holder) {
    if (m_prompter.AskYesNo("Datei wird bearbeitet.",
                            path + " ist bereits von " + holder +
                                " geöffnet.\nSoll die Datei schreibgeschützt geöffnet werden?"))
        return LockState::ReadOnly;
    // Even after the lock is removed the open ends here: the user opens the file again, on purpose.
    if (m_prompter.AskYesNo("Schreibschutz entfernen?",
                            "Möchten Sie den Schreibschutz von " + path +
                                " entfernen?\nENTFERNEN SIE DEN SCHREIBSCHUTZ NUR, WENN SIE SICHER SIND, "
                                "DASS KEIN ANDERER USER DIESE DATEI BEARBEITET!")) {
        if (const int removed = m_fs->Remove(lockPath); removed < 0 && removed != -ENOENT)
            TellError("Die Sperrdatei \"" + lockPath +
                      "\" kann nicht gelöscht werden: " + FileErrorReason(removed) + ".");
    }
    return LockState::Declined;
}

void CVeltoDoc::TakeContent(ProjectContent&& content) {
    DeleteContents();
    m_view = content.view;
    m_strAssigneeHistory = std::move(content.assigneeHistory);
    m_strRemarkHistory = std::move(content.remarkHistory);
    m_pFirstNode = content.ReleaseNodes();
}

void CVeltoDoc::DeleteContents() {
    FreeNodeList(m_pFirstNode);
    FreeNodeList(m_pBackupFirst);
    m_pFirstNode = nullptr;
    m_pBackupFirst = nullptr;
    m_view = ProjectViewValues{};
    m_strAssigneeHistory = {};
    m_strRemarkHistory = {};
}

// ---- Save ----

bool CVeltoDoc::OnSaveDocument(const std::string& path) {
    // Rewritten on every save, for a read-only document too: the program always did so.
    if (!WriteLock(path))
        return false;
    if (m_bReadOnly && !m_bSaveAsPending) {
        TellError("Datei ist schreibgeschützt!");
        return false;
    }
    const bool savingAs = std::exchange(m_bSaveAsPending, false);
    const SaveResult result = SaveWithBackups(*m_fs, path, [&](const PieceWriter& put) {
        WriteProject(m_view, m_strAssigneeHistory, m_strRemarkHistory, m_pFirstNode, put);
    });
    if (result.outcome != SaveResult::Outcome::Saved) {
        TellError(SaveFailureMessage(result, path));
        if (savingAs)
            AbandonSaveAs(path);
        return false;
    }
    // The document now belongs to the file just written (this ends read-only after "save as").
    m_bReadOnly = false;
    m_strPathName = path;
    m_bModified = false;
    return true;
}

bool CVeltoDoc::WriteLock(const std::string& path) {
    const std::string lockPath = LockFilePath(path);
    const int written = WriteFileBytes(*m_fs, lockPath, LockRecord(m_userName), CreateMode::Truncate);
    if (written < 0)
        TellError("Die Sperrdatei \"" + lockPath +
                  "\" kann nicht angelegt werden: " + FileErrorReason(written) + ".");
    return written == 0;
}

void CVeltoDoc::PrepareSaveAs() {
    if (!m_bReadOnly && !m_strPathName.empty())
        m_fs->Remove(LockFilePath(m_strPathName));
    m_bSaveAsPending = true;
}

void CVeltoDoc::CancelSaveAs() {
    m_bSaveAsPending = false;
    // Created only when absent: someone who took the lock in the meantime keeps it.
    if (!m_bReadOnly && !m_strPathName.empty())
        WriteFileBytes(*m_fs, LockFilePath(m_strPathName), LockRecord(m_userName), CreateMode::Exclusive);
}

void CVeltoDoc::AbandonSaveAs(const std::string& failedPath) {
    if (LockFilePath(failedPath) != LockFilePath(m_strPathName))
        m_fs->Remove(LockFilePath(failedPath));
    CancelSaveAs();
}

// ---- Close ----

bool CVeltoDoc::OnCloseDocument() {
    if (!m_bReadOnly && !m_strPathName.empty())
        m_fs->Remove(LockFilePath(m_strPathName));
    if (!m_pFirstNode)
        return true;
    CProjectNode* current = CurrentNode(m_pFirstNode);
    if (!current) {
        TellError("Fehler: OnCloseDocument");
        return true;
    }
    // Without a view there is no clock-out dialog, and nothing to wait for.
    if (!m_clockOut)
        return true;
    bool clockedOut = false;
    for (CProjectNode* node = m_pFirstNode; node; node = node->m_pNext) {
        if (!node->m_bClockedIn)
            continue;
        SelectOnly(m_pFirstNode, node);
        m_clockOut(*node);
        SetModifiedFlag();
        clockedOut = true;
    }
    if (!clockedOut)
        return true;
    // The close is cancelled on purpose: the new hours are to be saved first.
    SelectOnly(m_pFirstNode, current);
    return false;
}

// ---- Title, flags, views, undo ----

std::string CVeltoDoc::GetTitle() const {
    if (m_strPathName.empty())
        return "Unbenannt";
    return FileNameOf(m_strPathName) + (m_bReadOnly ? " - SCHREIBGESCHÜTZT" : "");
}

void CVeltoDoc::SetModifiedFlag(bool modified) {
    m_bModified = modified;
}

void CVeltoDoc::AddObserver(CDocObserver* observer) {
    if (std::find(m_observers.begin(), m_observers.end(), observer) == m_observers.end())
        m_observers.push_back(observer);
}

void CVeltoDoc::RemoveObserver(CDocObserver* observer) {
    std::erase(m_observers, observer);
}

void CVeltoDoc::UpdateAllViews() {
    // A view may close (and unregister) while it is told; it must not be told after that.
    const std::vector<CDocObserver*> observers = m_observers;
    for (CDocObserver* observer : observers)
        if (std::find(m_observers.begin(), m_observers.end(), observer) != m_observers.end())
            observer->OnDocumentUpdated(*this);
}

void CVeltoDoc::BackupTree() {
    m_pBackupFirst = RefreshListCopy(m_pBackupFirst, m_pFirstNode);
}

bool CVeltoDoc::Undo() {
    if (!m_pBackupFirst)
        return false;
    std::swap(m_pFirstNode, m_pBackupFirst);
    return true;
}

std::string CVeltoDoc::DefaultNote() const {
    return MakeDefaultNote(m_strNoteFont, m_nNoteFontSize);
}

void CVeltoDoc::TellError(const std::string& text) {
    m_prompter.Tell(text, Prompter::kCaption, PromptIcon::Warning);
}
