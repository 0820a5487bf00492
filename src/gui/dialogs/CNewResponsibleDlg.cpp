#include "dialogs/CNewResponsibleDlg.h"

#include "dialogs/DialogParts.h"
#include "dialogs/DialogText.h"
#include "model/PickListLogic.h"

#include <QAbstractButton>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>

namespace velto {

CNewResponsibleDlg::CNewResponsibleDlg(QWidget* parent)
    : QDialog(parent), m_name(new QLineEdit(this)), m_shortCode(new QLineEdit(this)) {
    setWindowTitle("Neuer Verantwortlicher");
    m_name->setObjectName("name");
    m_shortCode->setObjectName("shortCode");
    dlgtext::Restrict(m_name);
    dlgtext::Restrict(m_shortCode);
    auto* form = new QFormLayout(this);
    form->addRow("Name", m_name);
    form->addRow("Kurzzeichen", m_shortCode);
    QDialogButtonBox* buttons = NewButtonRow(this);
    form->addRow(buttons);
    // A person needs a name; the short code may stay empty.
    QAbstractButton* ok = AcceptButtonOf(buttons);
    ok->setEnabled(false);
    connect(m_name, &QLineEdit::textChanged, ok,
            [ok](const QString& name) { ok->setEnabled(!name.trimmed().isEmpty()); });
}

std::string CNewResponsibleDlg::Person() const {
    return ComposeResponsible(dlgtext::Keep(m_name->text()), dlgtext::Keep(m_shortCode->text()));
}

} // namespace velto
