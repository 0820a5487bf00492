#pragma once
// "Ausstempeln: <title>": the hours entry that ends a running clock. "Zu Liste hinzufügen" accepts
// once the interval is at least a minute; "Verwerfen" discards the entry.
#include "model/HoursLogic.h"
#include "model/PickListLogic.h"

#include <QDialog>

class QComboBox;
class QDateEdit;
class QLabel;
class QTimeEdit;

namespace velto {

class Prompter;

class CClockOutDlg : public QDialog {
    Q_OBJECT
public:
    // begin: the clock-in time; end: now or the proposed end. The combos offer the recent texts of
    // the histories.
    CClockOutDlg(const std::string& title, CTime begin, CTime end, const EntryHistories& histories,
                 Prompter& prompter, QWidget* parent = nullptr);

    // The entry as accepted.
    const HoursInput& Entry() const { return m_entry; }
    // The histories with the accepted texts put in front.
    const EntryHistories& Histories() const { return m_histories; }

    // A line above the buttons that says why the proposed end differs from now; hidden when empty.
    void ShowHint(const std::string& hint);

    // Refuses an interval shorter than a minute and stays open.
    void accept() override;

private:
    HoursInput ReadInput() const;

    Prompter& m_prompter;
    EntryHistories m_histories;
    HoursInput m_entry;
    QDateEdit* m_day;
    QTimeEdit* m_begin;
    QTimeEdit* m_end;
    QComboBox* m_assignee;
    QComboBox* m_remark;
    QLabel* m_hint;
};

// Clocks a task out (command "Ausstempeln"): stops its clock, then asks for the entry, proposing
// an end on the clock's first day when it ran past midnight. On
// "Zu Liste hinzufügen" the entry is appended to the node's hours, its duration added to the
// needed hours and the texts put into the histories. Returns whether an entry was added; after
// "Verwerfen" only the clock has stopped.
bool ClockOut(QWidget* parent, CProjectNode& node, EntryHistories& histories, Prompter& prompter);

} // namespace velto
