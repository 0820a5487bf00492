#pragma once
// The lower half of the node dialog: the three entry lists of a task (hours, calculated costs,
// needed costs), one shown at a time, with the input row that adds entries and takes them back.
// It works on the dialog's working copy of the node and on the dialog's copies of the histories.
#include "model/PickListLogic.h"

#include <QWidget>

#include <string>

class QComboBox;
class QDateEdit;
class QGroupBox;
class QKeyEvent;
class QLabel;
class QPushButton;
class QRadioButton;
class QTimeEdit;
class QTreeWidget;
class QTreeWidgetItem;

namespace velto {

class CProjectNode;
class StepEdit;
class Prompter;
struct CCostEntry;
template <class Entry> class EntryList;

enum class ListMode { Hours = 0, CalculatedCosts = 1, NeededCosts = 2 };

class EntryPanel : public QWidget {
    Q_OBJECT
public:
    EntryPanel(CProjectNode& copy, EntryHistories& histories, std::string presetFile, Prompter& prompter,
               QWidget* parent = nullptr);

    ListMode Mode() const { return m_mode; }
    void SetMode(ListMode mode);
    // Fills the list of the current mode anew.
    void Refill();
    // Refills the list when a cost list is shown (its automatic entry has changed).
    void RefreshCosts();
    // The panel's controls in the order Tab visits them.
    QList<QWidget*> TabChain() const;

signals:
    // The hours list changed: "Benötigt" becomes its sum.
    void NeededHoursChanged(const QString& text);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QWidget* BuildModeRadios();
    QGroupBox* BuildListGroup();
    QList<QWidget*> InputRow() const;
    void ShowMode();
    void ShowInputRow(bool hours);
    void KeepWidthAcrossModes();
    void FillCombos();
    void InsertRowSorted(const QStringList& columns);
    QTreeWidgetItem* SelectedRow() const;
    EntryList<CCostEntry>& CostList() const;

    void AddEntry();
    void TakeBackEntry();
    void AddHours();
    void AddCost();
    void TakeBackHours(const QTreeWidgetItem& row);
    void TakeBackCost(const QTreeWidgetItem& row);
    void ResetCostInput();

    CProjectNode& m_copy;
    EntryHistories& m_histories;
    std::string m_presetFile;
    Prompter& m_prompter;
    ListMode m_mode = ListMode::Hours;

    QRadioButton* m_modeRadios[3];
    QGroupBox* m_group;
    QLabel* m_beginLabel;
    QLabel* m_endLabel;
    QDateEdit* m_day;
    QTimeEdit* m_begin;
    QTimeEdit* m_end;
    StepEdit* m_unitPrice;
    StepEdit* m_quantity;
    QRadioButton* m_expense;
    QRadioButton* m_income;
    QComboBox* m_assignee;
    QComboBox* m_remark;
    QPushButton* m_add;
    QPushButton* m_takeBack;
    QTreeWidget* m_list;
};

} // namespace velto
