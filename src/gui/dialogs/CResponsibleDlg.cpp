#include "dialogs/CResponsibleDlg.h"

#include "dialogs/CNewResponsibleDlg.h"
#include "dialogs/DialogText.h"
#include "model/PickListLogic.h"

#include <QDialogButtonBox>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace velto {

namespace {

std::vector<std::string> Items(const QListWidget* list) {
    std::vector<std::string> items;
    for (int i = 0; i < list->count(); ++i)
        items.push_back(dlgtext::Keep(list->item(i)->text()));
    return items;
}

} // namespace

CResponsibleDlg::CResponsibleDlg(const CProjectNode* first, const std::string& current, QWidget* parent)
    : QDialog(parent), m_list(new QListWidget(this)) {
    setWindowTitle("Verantwortlich");
    m_list->setObjectName("persons");
    for (const std::string& person : ResponsibleChoices(first)) {
        m_list->addItem(dlgtext::Show(person));
        // The current person starts selected, so "Auswählen" without a click keeps it.
        if (!current.empty() && person == current)
            m_list->setCurrentRow(m_list->count() - 1);
    }
    connect(m_list, &QListWidget::itemDoubleClicked, this, &QDialog::accept);

    auto* buttons = new QDialogButtonBox(this);
    QPushButton* choose = buttons->addButton("Auswählen", QDialogButtonBox::AcceptRole);
    choose->setDefault(true);
    QPushButton* add = buttons->addButton("Hinzufügen", QDialogButtonBox::ActionRole);
    add->setObjectName("add");
    add->setAutoDefault(false);
    add->setToolTip("Einen neuen Verantwortlichen mit Name und Kurzzeichen anlegen");
    connect(choose, &QPushButton::clicked, this, &QDialog::accept);
    connect(add, &QPushButton::clicked, this, &CResponsibleDlg::AddNewPerson);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_list);
    layout->addWidget(buttons);
}

std::string CResponsibleDlg::Person() const {
    const QListWidgetItem* item = m_list->currentItem();
    return item && item->isSelected() ? ResponsibleFromChoice(dlgtext::Keep(item->text())) : std::string();
}

void CResponsibleDlg::AddNewPerson() {
    CNewResponsibleDlg dialog(this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const std::string person = dialog.Person();
    const int row = int(ListBoxInsertPosition(Items(m_list), person));
    m_list->insertItem(row, dlgtext::Show(person));
    m_list->setCurrentRow(row);
    // A new person is chosen at once, as if "Auswählen" had been pressed.
    accept();
}

} // namespace velto
