#include "dialogs/CClockOutDlg.h"

#include "common/Prompter.h"
#include "dialogs/DialogParts.h"
#include "dialogs/DialogText.h"
#include "dialogs/EntryCombos.h"

#include <QComboBox>
#include <QDateEdit>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QTimeEdit>

namespace velto {

CClockOutDlg::CClockOutDlg(const std::string& title, CTime begin, CTime end, const EntryHistories& histories,
                           Prompter& prompter, QWidget* parent)
    : QDialog(parent), m_prompter(prompter), m_histories(histories), m_day(NewDayPicker(this)),
      m_begin(NewTimePicker(this)), m_end(NewTimePicker(this)), m_assignee(NewEntryCombo(this)),
      m_remark(NewEntryCombo(this)), m_hint(new QLabel(this)) {
    setWindowTitle("Ausstempeln: " + dlgtext::Show(title));
    m_day->setObjectName("day");
    m_begin->setObjectName("begin");
    m_end->setObjectName("end");
    m_assignee->setObjectName("assignee");
    m_remark->setObjectName("remark");
    m_day->setDate(ToQDate(end));
    m_begin->setTime(ToQTime(begin));
    m_end->setTime(ToQTime(end));
    FillCombosFromHistories(m_assignee, m_remark, m_histories);

    auto* layout = new QGridLayout(this);
    const char* labels[] = {"Tag", "Beginn", "Ende", "Bearbeiter / Kommission", "Bemerkung"};
    QWidget* fields[] = {m_day, m_begin, m_end, m_assignee, m_remark};
    for (int column = 0; column < 5; ++column) {
        layout->addWidget(new QLabel(QString::fromUtf8(labels[column]), this), 0, column);
        layout->addWidget(fields[column], 1, column);
    }
    layout->setColumnStretch(3, 1);
    layout->setColumnStretch(4, 1);
    m_hint->setObjectName("hint");
    m_hint->setWordWrap(true);
    m_hint->hide();
    layout->addWidget(m_hint, 2, 0, 1, 5);
    layout->addWidget(NewButtonRow(this, "Zu Liste hinzufügen", "Verwerfen"), 3, 0, 1, 5);
}

void CClockOutDlg::ShowHint(const std::string& hint) {
    m_hint->setText(QString::fromStdString(hint));
    m_hint->setVisible(!hint.empty());
}

HoursInput CClockOutDlg::ReadInput() const {
    return ReadHoursInput(*m_day, *m_begin, *m_end, *m_assignee, *m_remark);
}

void CClockOutDlg::accept() {
    const HoursInput input = ReadInput();
    if (!input.IsValid()) {
        m_prompter.Tell(kBadInterval, Prompter::kCaption, PromptIcon::None);
        return;
    }
    PushHistories(m_histories, input.assignee, input.remark);
    FillCombosFromHistories(m_assignee, m_remark, m_histories);
    m_entry = input;
    QDialog::accept();
}

bool ClockOut(QWidget* parent, CProjectNode& node, EntryHistories& histories, Prompter& prompter) {
    StopClock(node);
    const ClockOutProposal proposal = ProposeClockOut(node.m_timeClockIn, CTime::GetCurrentTime());
    CClockOutDlg dialog(std::string(node.m_strTitle), node.m_timeClockIn, proposal.end, histories, prompter,
                        parent);
    dialog.ShowHint(proposal.hint);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    histories = dialog.Histories();
    return BookClockOut(node, dialog.Entry());
}

} // namespace velto
