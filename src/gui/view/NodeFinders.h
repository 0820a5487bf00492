#pragma once
// The view's two finders, the text search and "Meine Aufgaben": their commands, their modeless
// dialogs at the view's lower right corner, and going to the node they find (select it, open its
// ancestors, scroll the chart to it). The dialogs ask for a step or a go-to through the view's
// commands, as the menu does.
#include "outline/SearchTexts.h"

#include <QObject>
#include <QPointer>

namespace velto {

class CMyTasksDlg;
class CProjectNode;
class CSearchDlg;
class CVeltoView;
class CommandMap;

class NodeFinders : public QObject {
    Q_OBJECT
public:
    explicit NodeFinders(CVeltoView& view);
    ~NodeFinders() override;

    void RegisterCommands(CommandMap& commands);
    // "Meine Aufgaben" follows the project once the command that changed it is through.
    void OnDocumentUpdated();
    // The first time the view shows, starts parsing the notes for the search in the background once
    // the window is up, so that a search soon after opening finds them parsed.
    void OnViewShown();

    // The open dialogs, or null.
    CSearchDlg* SearchDialog() const;
    CMyTasksDlg* MyTasksDialog() const;

private:
    void OpenSearch();
    void SearchStep();
    void OpenMyTasks();
    void GoToChosenTask();
    void RefreshMyTasks();
    void PrepareSearch();
    void GoTo(CProjectNode* node);
    // Puts the dialog's lower right corner on the view's and shows it.
    void ShowAtLowerRight(QWidget* dialog);

    CVeltoView& m_view;
    QPointer<CSearchDlg> m_search;
    QPointer<CMyTasksDlg> m_myTasks;
    bool m_refreshPending = false;
    bool m_shown = false;
    SearchTexts m_texts;
};

} // namespace velto
