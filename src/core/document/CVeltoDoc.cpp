#include "document/CVeltoDoc.h"

#include "common/Prompter.h"
#include "document/ProjectReading.h"
#include "document/SafeSave.h"
#include "io/FileSystem.h"
#include "io/LoginName.h"
#include "model/CTime.h"
#include "model/NodeList.h"
#include "text/DefaultNote.h"

#include <algorithm>
#include <cerrno>
#include <utility>

namespace velto {

namespace {

// A lock file that vanishes and reappears between the check and the creation is asked about again,
// but not forever.
constexpr int kLockAttempts = 3;

std::string TimeText(int64_t seconds) {
    return CTime(uint32_t(seconds)).Format("%d.%m.%Y um %H:%M Uhr");
}

bool IsWriteProtection(int error) {
    return error == -EACCES || error == -EPERM || error == -EROFS;
}

} // namespace

CVeltoDoc::CVeltoDoc(Prompter& prompter, std::string noteFont, int noteFontSize, FileSystem* fileSystem,
                     std::string userName)
    : m_strNoteFont(std::move(noteFont)), m_nNoteFontSize(noteFontSize), m_prompter(prompter),
      m_ownFs(fileSystem ? nullptr : std::make_unique<PosixFileSystem>()),
      m_fs(fileSystem ? fileSystem : m_ownFs.get()),
      m_userName(userName.empty() ? CurrentLoginName() : std::move(userName)), m_lock(*m_fs) {}

CVeltoDoc::~CVeltoDoc() {
    FreeNodeList(m_pFirstNode);
    FreeNodeList(m_pBackupFirst);
}

// ---- New and open ----

bool CVeltoDoc::OnNewDocument() {
    DeleteContents();
    m_lock.Release();
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
    // A linked project is edited where it lives: its lock and backups lie beside the real file.
    const std::string file = ResolveFileLink(path);
    const LockState lock = AcquireLock(file);
    if (lock == LockState::Declined)
        return false;
    ProjectLock held(*m_fs);
    held.TakeFrom(m_lock);
    ProjectContent content;
    if (!ReadStateTold(file, content))
        return false; // the lock taken above goes with `held`
    TakeContent(std::move(content));
    m_lock.TakeFrom(held);
    m_strPathName = path;
    // A file the user may not write is shown as read-only; saving it says so.
    m_bReadOnly = lock == LockState::ReadOnly || IsWriteProtection(m_fs->CheckWritable(file));
    if (m_bReadOnly)
        m_lock.Release();
    m_bSaveAsPending = false;
    m_bModified = false;
    if (m_lock.IsHeld())
        OfferInterruptedSaves(file);
    return true;
}

bool CVeltoDoc::OpenStateReadOnly(const std::string& statePath) {
    ProjectContent content;
    if (!ReadStateTold(statePath, content))
        return false;
    TakeContent(std::move(content));
    m_lock.Release();
    m_strPathName = statePath;
    m_bReadOnly = true;
    m_bSaveAsPending = false;
    m_bModified = false;
    return true;
}

bool CVeltoDoc::ReadStateTold(const std::string& path, ProjectContent& content) {
    ReadResult result;
    const int opened = ReadProjectFile(*m_fs, path, content, result);
    if (opened < 0 || result.status == ReadStatus::Error) {
        TellError(opened < 0 ? "Die Datei \"" + path +
                                   "\" kann nicht geöffnet werden: " + FileErrorReason(opened) + "."
                             : result.Message(path));
        return false;
    }
    if (result.status == ReadStatus::WrongFormat)
        m_prompter.Tell("Falsches Dateiformat!");
    return true;
}

CVeltoDoc::LockState CVeltoDoc::AcquireLock(const std::string& file) {
    const std::string lockPath = LockFilePath(file);
    for (int attempt = 0; attempt < kLockAttempts; ++attempt) {
        LockOwner owner;
        const int read = ReadLockOwner(*m_fs, lockPath, owner);
        if (read == 0)
            return AskAboutForeignLock(file, owner);
        if (read != -ENOENT) {
            TellError("Die Sperrdatei \"" + lockPath + "\" kann nicht benutzt werden: " +
                      FileErrorReason(read) + ".\nDie Datei wird schreibgeschützt geöffnet.");
            return LockState::ReadOnly;
        }
        // Created only when absent, so that of two people opening the project at the same moment
        // exactly one gets to edit it; the other is asked about the first one's lock.
        const int created = m_lock.Create(lockPath, OwnLockRecord(m_userName));
        if (created == 0)
            return LockState::Held;
        if (created != -EEXIST) {
            // Without a lock a second person could edit the file at the same time.
            TellError("Datei kann nicht geöffnet werden!\nDie Sperrdatei \"" + lockPath +
                      "\" kann nicht angelegt werden: " + FileErrorReason(created) +
                      ".\nDie Datei wird schreibgeschützt geöffnet.");
            return LockState::ReadOnly;
        }
    }
    TellError("Die Sperrdatei \"" + lockPath +
              "\" wird gerade von einem anderen Benutzer angelegt und wieder gelöscht.\n"
              "Die Datei wird schreibgeschützt geöffnet.");
    return LockState::ReadOnly;
}

CVeltoDoc::LockState CVeltoDoc::AskAboutForeignLock(const std::string& file, const LockOwner& owner) {
    if (owner.IsLeftOver()) {
        const LockState offered = OfferLeftOverLock(file, owner);
        if (offered == LockState::Held)
            return offered;
    }
    if (m_prompter.AskYesNo("Datei wird bearbeitet.",
                            file + " ist bereits von " + owner.user +
                                " geöffnet.\nSoll die Datei schreibgeschützt geöffnet werden?"))
        return LockState::ReadOnly;
    // Even after the lock is removed the open ends here: the user opens the file again, on purpose.
    const std::string lockPath = LockFilePath(file);
    if (m_prompter.AskYesNo("Schreibschutz entfernen?",
                            "Möchten Sie den Schreibschutz von " + file +
                                " entfernen?\nENTFERNEN SIE DEN SCHREIBSCHUTZ NUR, WENN SIE SICHER SIND, "
                                "DASS KEIN ANDERER USER DIESE DATEI BEARBEITET!")) {
        if (const int removed = m_fs->Remove(lockPath); removed < 0 && removed != -ENOENT)
            TellError("Die Sperrdatei \"" + lockPath +
                      "\" kann nicht gelöscht werden: " + FileErrorReason(removed) + ".");
    }
    return LockState::Declined;
}

// A lock file whose Velto no longer runs is no reason to guess: the user is told whose it was and
// takes it over with one answer. Declining leads to the usual question.
CVeltoDoc::LockState CVeltoDoc::OfferLeftOverLock(const std::string& file, const LockOwner& owner) {
    const std::string text = file + " ist bereits von " + owner.user +
                             " geöffnet.\nDie Sperre wurde von Velto auf dem Rechner " + owner.host + " am " +
                             TimeText(owner.written) +
                             " gesetzt; dieses Velto läuft nicht mehr.\n"
                             "Soll die Sperre übernommen und die Datei zum Bearbeiten geöffnet werden?";
    if (!m_prompter.AskYesNo("Datei wird bearbeitet.", text))
        return LockState::ReadOnly;
    // Whoever takes it over first holds it; a second taker finds it held and is asked as usual.
    return m_lock.TakeOver(LockFilePath(file), OwnLockRecord(m_userName)) == 0 ? LockState::Held
                                                                               : LockState::ReadOnly;
}

void CVeltoDoc::OfferInterruptedSaves(const std::string& file) {
    for (const std::string& state : RepairInterruptedSave(*m_fs, file)) {
        FileStatus status;
        m_fs->Status(state, status);
        const std::string text = "Beim Speichern von " + file + " am " + TimeText(status.modified) +
                                 " wurde Velto unterbrochen.\nDer damals gespeicherte Stand ist vollständig "
                                 "erhalten, aber neuer als die Datei.\nSoll dieser Stand wiederhergestellt "
                                 "werden? (Der jetzige Stand wird als Sicherung .BK0 aufbewahrt.)";
        if (!m_prompter.AskYesNo("Wiederherstellen?", text))
            continue;
        if (RestoreState(state))
            m_fs->Remove(state);
    }
}

void CVeltoDoc::TakeContent(ProjectContent&& content) {
    DeleteContents();
    m_view = content.view;
    m_strAssigneeHistory = std::move(content.assigneeHistory);
    m_strRemarkHistory = std::move(content.remarkHistory);
    m_pFirstNode = content.ReleaseNodes();
}

ProjectContent CVeltoDoc::ReleaseContent() {
    ProjectContent content;
    content.view = m_view;
    content.assigneeHistory = m_strAssigneeHistory;
    content.remarkHistory = m_strRemarkHistory;
    content.firstNode = std::exchange(m_pFirstNode, nullptr);
    return content;
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
    // Whatever happens below, a later plain save is a plain save again.
    const bool savingAs = std::exchange(m_bSaveAsPending, false);
    const std::string file = ResolveFileLink(path);
    const bool sameFile =
        !m_strPathName.empty() && LockFilePath(file) == LockFilePath(ResolveFileLink(m_strPathName));
    // The lock file of a read-only document is someone else's: it is never written from here.
    if (m_bReadOnly && (!savingAs || sameFile)) {
        TellError("Datei ist schreibgeschützt!");
        return false;
    }
    if (const int writable = m_fs->CheckWritable(file); IsWriteProtection(writable)) {
        TellError("Datei ist schreibgeschützt!");
        return false;
    }
    ProjectLock fresh(*m_fs);
    if (!LockForSaving(file, fresh))
        return false;
    RepairInterruptedSave(*m_fs, file);
    const SaveResult result = SaveWithBackups(*m_fs, file, [&](const PieceWriter& put) {
        WriteProject(m_view, m_strAssigneeHistory, m_strRemarkHistory, m_pFirstNode, put);
    });
    if (result.outcome != SaveResult::Outcome::Saved) {
        TellError(SaveFailureMessage(result, file));
        return false; // a lock taken for a new name goes with `fresh`
    }
    // The document now belongs to the file just written (this ends read-only after "save as").
    if (fresh.IsHeld())
        m_lock.TakeFrom(fresh);
    m_bReadOnly = false;
    m_strPathName = path;
    m_bModified = false;
    return true;
}

bool CVeltoDoc::LockForSaving(const std::string& file, ProjectLock& fresh) {
    const std::string lockPath = LockFilePath(file);
    if (m_lock.IsHeld() && m_lock.Path() == lockPath) {
        if (m_lock.IsStillOurs())
            return true;
        // Someone removed the lock file ("Schreibschutz entfernen") and may have taken it since.
        m_lock.Release();
    }
    const int created = fresh.Create(lockPath, OwnLockRecord(m_userName));
    if (created == -EEXIST)
        return RefuseForeignLock(file);
    if (created < 0) {
        TellError("Die Sperrdatei \"" + lockPath +
                  "\" kann nicht angelegt werden: " + FileErrorReason(created) + ".");
        return false;
    }
    return true;
}

bool CVeltoDoc::RefuseForeignLock(const std::string& file) {
    LockOwner owner;
    const std::string who = ReadLockOwner(*m_fs, LockFilePath(file), owner) == 0 ? owner.user : "???";
    TellError(file + " ist bereits von " + who +
              " geöffnet.\nDie Datei wird nicht überschrieben; speichern Sie unter einem anderen Namen.");
    return false;
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

void CVeltoDoc::PrepareSaveAs() {
    m_bSaveAsPending = true;
}

void CVeltoDoc::CancelSaveAs() {
    m_bSaveAsPending = false;
}

// ---- Close ----

bool CVeltoDoc::OnCloseDocument() {
    if (!m_pFirstNode) {
        m_lock.Release();
        return true;
    }
    CProjectNode* current = CurrentNode(m_pFirstNode);
    if (!current) {
        TellError("Fehler: OnCloseDocument");
        m_lock.Release();
        return true;
    }
    bool clockedOut = false;
    // Without a view there is no clock-out dialog, and nothing to wait for.
    for (CProjectNode* node = m_clockOut ? m_pFirstNode : nullptr; node; node = node->m_pNext) {
        if (!node->m_bClockedIn)
            continue;
        SelectOnly(m_pFirstNode, node);
        m_clockOut(*node);
        SetModifiedFlag();
        clockedOut = true;
    }
    if (!clockedOut) {
        m_lock.Release();
        return true;
    }
    // The close is cancelled on purpose: the new hours are to be saved first, and the document
    // keeps its lock meanwhile.
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

void CVeltoDoc::AddObserver(DocObserver* observer) {
    if (std::find(m_observers.begin(), m_observers.end(), observer) == m_observers.end())
        m_observers.push_back(observer);
}

void CVeltoDoc::RemoveObserver(DocObserver* observer) {
    std::erase(m_observers, observer);
}

void CVeltoDoc::UpdateAllViews() {
    // A view may close (and unregister) while it is told; it must not be told after that.
    const std::vector<DocObserver*> observers = m_observers;
    for (DocObserver* observer : observers)
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

} // namespace velto
