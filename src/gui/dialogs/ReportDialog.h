#pragma once
// What the hours and the cost report share: the period, the text filter, the done and undone
// boxes, the list, "ENTF", the clipboard, printing, CSV and the total. Every change of a picker,
// the filter or a box fills the list anew at once (rows taken out with "ENTF" come back then);
// the report itself comes from the core, and the dialog only shows it.
#include "outline/Report.h"

#include <QDialog>

#include <memory>
#include <vector>

class QCheckBox;
class QDateEdit;
class QLabel;
class QLineEdit;
class QTableView;
class QVBoxLayout;

namespace velto {

class Prompter;
class ReportTableModel;

class ReportDialog : public QDialog {
    Q_OBJECT
public:
    ReportDialog(const QString& title, Prompter& prompter, QWidget* parent);

    const Report& GetReport() const;
    // Fills the list from the controls.
    void Refill();
    // "ENTF": takes the selected rows out of the list; "Kein Eintrag ausgewählt!" when none is.
    void RemoveSelected();
    // "In Zwischenablage kopieren": the selected rows, or every row when none is selected.
    void CopyToClipboard();
    // Writes the rows shown as CSV; a German message when that fails.
    bool SaveCsv(const QString& path);

protected:
    // The report the controls describe; the subclasses add their own choices.
    virtual std::unique_ptr<Report> BuildReport(const ReportOptions& options) const = 0;
    // Where the subclasses put their own controls, above the period.
    QVBoxLayout* ChoiceArea() const { return m_choices; }

private:
    QWidget* BuildPeriodRow();
    QWidget* BuildButtonRow();
    ReportOptions Options() const;
    void SizeColumns();
    std::vector<size_t> SelectedRows() const;
    void ChooseCsvFile();
    void Print();

    Prompter& m_prompter;
    QVBoxLayout* m_choices = nullptr;
    QDateEdit* m_from = nullptr;
    QDateEdit* m_to = nullptr;
    QLineEdit* m_contains = nullptr;
    QCheckBox* m_done = nullptr;
    QCheckBox* m_undone = nullptr;
    QTableView* m_list = nullptr;
    ReportTableModel* m_model = nullptr;
    QLabel* m_total = nullptr;
};

} // namespace velto
