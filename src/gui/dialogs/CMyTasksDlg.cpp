#include "dialogs/CMyTasksDlg.h"

#include "base/ProjectFiles.h"
#include "common/Prompter.h"
#include "dialogs/DialogText.h"
#include "document/CVeltoDoc.h"
#include "model/PickListLogic.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>

namespace velto {

namespace {

std::vector<std::string> Titles(const std::vector<CProjectNode*>& nodes) {
    std::vector<std::string> titles;
    for (const CProjectNode* node : nodes)
        titles.emplace_back(node->m_strTitle);
    return titles;
}

void Show(QListWidget* list, const std::vector<std::string>& texts) {
    const QSignalBlocker quiet(list);
    list->clear();
    for (const std::string& text : texts)
        list->addItem(dlgtext::Show(text));
}

int ChosenRow(const QListWidget* list) {
    const QListWidgetItem* item = list->currentItem();
    return item && item->isSelected() ? list->row(item) : -1;
}

} // namespace

CMyTasksDlg::CMyTasksDlg(CVeltoDoc& doc, QWidget* parent)
    : QDialog(parent), m_doc(doc), m_persons(new QListWidget(this)), m_tasks(new QListWidget(this)) {
    setWindowTitle("Meine Aufgaben in: " + FromCoreText(doc.GetTitle()));
    m_persons->setObjectName("persons");
    m_tasks->setObjectName("tasks");
    // A click makes a row current before it selects it, so the selection is what counts.
    connect(m_persons, &QListWidget::itemSelectionChanged, this, &CMyTasksDlg::FillTasks);
    connect(m_tasks, &QListWidget::itemDoubleClicked, this, &CMyTasksDlg::GoTo);

    auto* buttons = new QDialogButtonBox(this);
    QPushButton* goTo = buttons->addButton("Gehe zu", QDialogButtonBox::ActionRole);
    goTo->setObjectName("goTo");
    goTo->setDefault(true);
    buttons->addButton(QDialogButtonBox::Ok)->setAutoDefault(false);
    connect(goTo, &QPushButton::clicked, this, &CMyTasksDlg::GoTo);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);

    auto* lists = new QHBoxLayout;
    lists->addWidget(m_persons);
    lists->addWidget(m_tasks, 2);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(lists);
    layout->addWidget(buttons);
    Refresh();
}

std::vector<CProjectNode*> CMyTasksDlg::NodesOfChosenPerson() const {
    const int row = ChosenRow(m_persons);
    return row < 0 ? std::vector<CProjectNode*>()
                   : NodesOfPerson(m_doc.m_pFirstNode, m_personTexts[size_t(row)]);
}

CProjectNode* CMyTasksDlg::ChosenNode() const {
    const int row = ChosenRow(m_tasks);
    if (row < 0)
        return nullptr;
    const std::vector<CProjectNode*> nodes = NodesOfChosenPerson();
    return size_t(row) < nodes.size() ? nodes[size_t(row)] : nullptr;
}

void CMyTasksDlg::Refresh() {
    std::vector<std::string> persons = ResponsiblePersons(m_doc.m_pFirstNode);
    if (persons != m_personTexts) {
        const int row = ChosenRow(m_persons);
        const std::string chosen = row < 0 ? std::string() : m_personTexts[size_t(row)];
        m_personTexts = std::move(persons);
        Show(m_persons, m_personTexts);
        const auto kept = std::find(m_personTexts.begin(), m_personTexts.end(), chosen);
        if (row >= 0 && kept != m_personTexts.end()) {
            const QSignalBlocker quiet(m_persons);
            m_persons->setCurrentRow(int(kept - m_personTexts.begin()));
        }
    }
    // The same titles in the same order stand for the same nodes, so the chosen row stays.
    if (Titles(NodesOfChosenPerson()) != m_taskTitles)
        FillTasks();
}

void CMyTasksDlg::FillTasks() {
    m_taskTitles = Titles(NodesOfChosenPerson());
    Show(m_tasks, m_taskTitles);
}

void CMyTasksDlg::GoTo() {
    if (ChosenRow(m_tasks) < 0)
        m_doc.GetPrompter().Tell("Kein Eintrag ausgewählt!");
    else
        emit goToRequested();
}

} // namespace velto
