#include "app/CChildFrame.h"

#include "app/CMainFrame.h"
#include "app/WindowPlacement.h"
#include "base/Icons.h"
#include "base/ProjectFiles.h"
#include "document/ProjectFile.h"
#include "view/CVeltoView.h"

#include <QCloseEvent>

namespace velto {

CChildFrame::CChildFrame(std::unique_ptr<CVeltoDoc> doc, CVeltoView* view, CMainFrame& frame)
    : m_doc(std::move(doc)), m_view(view), m_commands(*this, frame.GetDesktop(), frame.Recent()) {
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowIcon(AppIcon());
    setWidget(m_view);
    RefreshTitle();
}

CChildFrame::~CChildFrame() {
    // The view observes the document, so it goes first.
    delete m_view;
}

void CChildFrame::RefreshTitle() {
    setWindowTitle(FromCoreText(m_doc->GetTitle()) + QStringLiteral("[*]"));
    setWindowModified(m_doc->IsModified());
}

void CChildFrame::StoreViewValues(ProjectViewValues& values) const {
    const ViewLayout layout = m_view->GetLayout();
    values.chartWidth1 = layout.chartWidth1;
    values.chartWidth2 = layout.chartWidth2;
    values.zoom = uint32_t(layout.zoom);
    values.maximized = isMaximized() ? 1 : 0;
    values.windowRect = ToStoredRect(m_normalGeometry);
}

bool CChildFrame::ApplyViewValues(const ProjectViewValues& values, const QSize& mdiArea,
                                  const QSize& screen) {
    m_view->SetLayout({values.chartWidth1, values.chartWidth2, int(values.zoom)});
    const std::optional<QRect> placed = ChildWindowPlacement(values.windowRect, mdiArea, screen);
    if (placed)
        setGeometry(*placed);
    if (values.maximized)
        showMaximized();
    return placed.has_value();
}

void CChildFrame::CloseConfirmed() {
    m_closeConfirmed = true;
    close();
}

void CChildFrame::closeEvent(QCloseEvent* event) {
    const bool mayClose = m_closeConfirmed || (m_commands.SaveModified() && m_doc->OnCloseDocument());
    if (!mayClose) {
        m_closeConfirmed = false;
        RefreshTitle();
        event->ignore();
        return;
    }
    QMdiSubWindow::closeEvent(event);
}

void CChildFrame::moveEvent(QMoveEvent* event) {
    QMdiSubWindow::moveEvent(event);
    RememberNormalGeometry();
}

void CChildFrame::resizeEvent(QResizeEvent* event) {
    QMdiSubWindow::resizeEvent(event);
    RememberNormalGeometry();
}

void CChildFrame::RememberNormalGeometry() {
    if (!(windowState() & (Qt::WindowMaximized | Qt::WindowMinimized)))
        m_normalGeometry = geometry();
}

} // namespace velto
