#pragma once
// "Feiertage, Urlaub, ...": edits the special days of "Feiertage.dat" that the chart paints in their
// colours, latest first. OK writes the file (the old one becomes "Feiertage.bak"); "Abbrechen"
// writes nothing. A file that exists but cannot be read is named with the reason, and OK stays
// disabled: saving would replace its entries with the empty list shown.
#include "files/HolidayList.h"

#include <QDialog>

#include <string>

class QCheckBox;
class QDateEdit;
class QLineEdit;
class QPushButton;
class QTreeWidget;

namespace velto {

class Prompter;

class CHolidayDlg : public QDialog {
    Q_OBJECT
public:
    CHolidayDlg(std::string holidayFile, Prompter& prompter, QWidget* parent = nullptr);

    // The entries in list order.
    const std::vector<CHoliday>& Entries() const { return m_entries.Entries(); }

    void accept() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* BuildInputRow();
    QTreeWidget* BuildList();
    void ShowRow(std::size_t index);
    void AddEntry();
    void TakeBackEntry();
    void ChooseColour();
    void ShowColour();

    std::string m_file;
    Prompter& m_prompter;
    HolidayList m_entries;
    int m_readError = 0;
    int m_colour = kDefaultHolidayColor;
    QDateEdit* m_date = nullptr;
    QLineEdit* m_name = nullptr;
    QCheckBox* m_yearly = nullptr;
    QPushButton* m_colourButton = nullptr;
    QTreeWidget* m_list = nullptr;
};

// Runs "Feiertage, Urlaub, ..." on the holiday file of the data directory; true when it was written.
bool EditHolidays(QWidget* parent, Prompter& prompter);

} // namespace velto
