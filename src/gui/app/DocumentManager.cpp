#include "app/DocumentManager.h"

#include "app/CChildFrame.h"
#include "app/CMainFrame.h"
#include "app/RecentFileList.h"
#include "app/WindowPlacement.h"
#include "base/Cp1252Text.h"
#include "base/Desktop.h"
#include "base/ProjectFiles.h"
#include "base/Settings.h"
#include "common/Prompter.h"
#include "document/CVeltoDoc.h"
#include "files/DataDir.h"
#include "view/CVeltoView.h"

#include <QDir>
#include <QFileInfo>
#include <QMdiArea>
#include <QScreen>

#include <algorithm>

namespace velto {

DocumentManager::DocumentManager(CMainFrame& frame, QMdiArea& mdi, Desktop& desktop, SettingsStore& settings,
                                 RecentFileList& recent)
    : m_frame(frame), m_mdi(mdi), m_desktop(desktop), m_settings(settings), m_recent(recent) {}

std::unique_ptr<CVeltoDoc> DocumentManager::MakeDocument() const {
    const SettingsSession settings = m_settings.Open();
    const QString font = settings.Get(setting::NoteFontName);
    const int size =
        std::clamp(settings.Get(setting::NoteFontSize), setting::kMinNoteFontSize, setting::kMaxNoteFontSize);
    return std::make_unique<CVeltoDoc>(m_desktop.GetPrompter(), ToCp1252Lossy(font), size);
}

CChildFrame* DocumentManager::NewDocument() {
    auto doc = MakeDocument();
    if (!doc->OnNewDocument())
        return nullptr;
    return AddChild(std::move(doc), false);
}

CChildFrame* DocumentManager::OpenDocumentFile(const QString& path) {
    const QString key = FileKey(path);
    if (CChildFrame* open = FindDocument(key)) {
        m_mdi.setActiveSubWindow(open);
        m_recent.Add(key);
        return open;
    }
    if (!QFileInfo::exists(key)) {
        m_desktop.Warn(
            QString::fromUtf8("Die Datei\n%1\nwurde nicht gefunden.").arg(QDir::toNativeSeparators(key)));
        return nullptr;
    }
    auto doc = MakeDocument();
    if (!doc->OnOpenDocument(ToCorePath(key)))
        return nullptr;
    CChildFrame* child = AddChild(std::move(doc), true);
    m_recent.Add(key);
    if (!child->GetDocument().m_bReadOnly)
        child->GetView().OfferEndedClocks();
    return child;
}

CChildFrame* DocumentManager::OpenStateReadOnly(const QString& statePath) {
    auto doc = MakeDocument();
    if (!doc->OpenStateReadOnly(ToCorePath(statePath)))
        return nullptr;
    return AddChild(std::move(doc), true);
}

CChildFrame* DocumentManager::FindDocument(const QString& fileKey) const {
    for (CChildFrame* child : m_frame.Children()) {
        const std::string& path = child->GetDocument().GetPathName();
        if (!path.empty() && FileKey(FromCorePath(path)) == fileKey)
            return child;
    }
    return nullptr;
}

CChildFrame* DocumentManager::AddChild(std::unique_ptr<CVeltoDoc> doc, bool fromFile) {
    const ShellState& state = m_frame.State();
    CVeltoView* view =
        m_viewFactory ? m_viewFactory(*doc, state)
                      : new CVeltoView(*doc, state, ReadViewContext(m_settings.Open(), HolidayFilePath()));
    auto* child = new CChildFrame(std::move(doc), view, m_frame);
    child->Commands().SetStateOpener([this](const QString& path) { OpenStateReadOnly(path); });
    m_mdi.addSubWindow(child);
    const QSize area = m_mdi.viewport()->size();
    const QSize screenSize = m_frame.screen() ? m_frame.screen()->size() : QSize(800, 600);
    const bool placed = fromFile && child->ApplyViewValues(child->GetDocument().m_view, area, screenSize);
    if (!placed)
        child->setGeometry(NewChildWindowPlacement(area, int(m_frame.Children().size()) - 1));
    if (!child->isMaximized())
        child->show();
    m_mdi.setActiveSubWindow(child);
    m_frame.ShowMenuSet();
    return child;
}

void DocumentManager::ChooseAndOpen() {
    const QString path = m_desktop.ChooseFileToOpen(&m_frame);
    if (!path.isEmpty())
        OpenDocumentFile(path);
}

void DocumentManager::OpenRecent(int index) {
    const QString path = m_recent.Files().value(index);
    // A file that is gone leaves the list; one that the user chose not to open (it is locked) stays.
    if (!path.isEmpty() && !OpenDocumentFile(path) && !QFileInfo::exists(path))
        m_recent.Remove(path);
}

bool DocumentManager::CloseAllDocuments() {
    const QList<CChildFrame*> children = m_frame.Children();
    for (CChildFrame* child : children)
        if (!child->Commands().SaveModified())
            return false;
    bool allClosed = true;
    for (CChildFrame* child : children) {
        if (child->GetDocument().OnCloseDocument())
            child->CloseConfirmed();
        else
            allClosed = false;
    }
    m_frame.ShowMenuSet();
    return allClosed;
}

} // namespace velto
