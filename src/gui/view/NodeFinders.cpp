#include "view/NodeFinders.h"

#include "base/CommandIds.h"
#include "base/CommandMap.h"
#include "base/ProjectFiles.h"
#include "chart/CGrafik.h"
#include "common/Prompter.h"
#include "dialogs/CMyTasksDlg.h"
#include "dialogs/CSearchDlg.h"
#include "model/NodeList.h"
#include "view/CVeltoView.h"

#include <utility>

namespace velto {

NodeFinders::NodeFinders(CVeltoView& view) : m_view(view) {}

NodeFinders::~NodeFinders() {
    delete m_search;
    delete m_myTasks;
}

CSearchDlg* NodeFinders::SearchDialog() const {
    return m_search;
}

CMyTasksDlg* NodeFinders::MyTasksDialog() const {
    return m_myTasks;
}

void NodeFinders::RegisterCommands(CommandMap& commands) {
    commands.Add(cmd::FindText, [this] { OpenSearch(); });
    commands.Add(cmd::SearchStep, [this] { SearchStep(); });
    commands.Add(cmd::MyTasks, [this] { OpenMyTasks(); });
    commands.Add(cmd::MyTasksChosen, [this] { GoToChosenTask(); });
}

void NodeFinders::OnDocumentUpdated() {
    if (!m_myTasks || m_refreshPending)
        return;
    m_refreshPending = true;
    QMetaObject::invokeMethod(this, &NodeFinders::RefreshMyTasks, Qt::QueuedConnection);
}

void NodeFinders::RefreshMyTasks() {
    m_refreshPending = false;
    if (m_myTasks)
        m_myTasks->Refresh();
}

void NodeFinders::OnViewShown() {
    if (std::exchange(m_shown, true))
        return;
    QMetaObject::invokeMethod(this, &NodeFinders::PrepareSearch, Qt::QueuedConnection);
}

void NodeFinders::PrepareSearch() {
    m_texts.StartPreparing(m_view.GetDocument().m_pFirstNode);
}

void NodeFinders::OpenSearch() {
    delete m_search;
    m_search = new CSearchDlg(FromCoreText(m_view.GetDocument().GetTitle()), &m_view);
    connect(m_search, &CSearchDlg::stepRequested, this, [this] { m_view.OnCommand(cmd::SearchStep); });
    connect(m_search, &QDialog::finished, m_search, &QObject::deleteLater);
    ShowAtLowerRight(m_search);
    // Notes changed since the view showed are parsed while the first characters are typed.
    PrepareSearch();
}

void NodeFinders::SearchStep() {
    if (!m_search)
        return;
    // What was typed into the note so far is searched too.
    m_view.SaveNote();
    const SearchHit hit = velto::SearchStep(m_view.GetDocument().m_pFirstNode, m_search->Text(),
                                            m_search->Direction(), m_texts);
    m_search->ShowParts(hit.parts);
    if (hit.node)
        GoTo(hit.node);
}

void NodeFinders::OpenMyTasks() {
    delete m_myTasks;
    m_myTasks = new CMyTasksDlg(m_view.GetDocument(), &m_view);
    connect(m_myTasks, &CMyTasksDlg::goToRequested, this, [this] { m_view.OnCommand(cmd::MyTasksChosen); });
    connect(m_myTasks, &QDialog::finished, m_myTasks, &QObject::deleteLater);
    ShowAtLowerRight(m_myTasks);
}

void NodeFinders::GoToChosenTask() {
    CProjectNode* chosen = m_myTasks ? m_myTasks->ChosenNode() : nullptr;
    if (!chosen)
        return;
    if (!CurrentNode(m_view.GetDocument().m_pFirstNode)) {
        m_view.GetDocument().GetPrompter().Tell("Fehler: CVeltoView::OnMeineAufgabenAuswaehlen() ");
        return;
    }
    GoTo(chosen);
}

void NodeFinders::GoTo(CProjectNode* node) {
    CVeltoDoc& doc = m_view.GetDocument();
    SelectOnly(doc.m_pFirstNode, node);
    ExpandAncestors(doc.m_pFirstNode, node);
    doc.UpdateAllViews();
    m_view.Chart().ScrollToSelection();
    // The mind map, once there is one, takes the node's place in the map as its scroll target here.
}

void NodeFinders::ShowAtLowerRight(QWidget* dialog) {
    dialog->show();
    const QPoint corner = m_view.mapToGlobal(QPoint(m_view.width(), m_view.height()));
    const QSize frame = dialog->frameGeometry().size();
    dialog->move(corner - QPoint(frame.width(), frame.height()));
}

} // namespace velto
