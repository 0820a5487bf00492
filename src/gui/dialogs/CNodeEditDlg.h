#pragma once
// "Knoten bearbeiten": edits one node through a working copy: title, kind, dates, done flag, hours,
// hourly rate, title format, reminder, responsible person and the three entry lists. OK checks the
// kind change and the dates and writes the copy back; "Abbrechen" throws the copy away.
#include "model/PickListLogic.h"

#include <QDialog>

#include <functional>
#include <memory>
#include <string>

class QAbstractButton;
class QButtonGroup;
class QCheckBox;
class QDateEdit;
class QDialogButtonBox;
class QGroupBox;
class QLabel;
class QLayout;
class QLineEdit;
class QPushButton;

namespace velto {

class EntryPanel;
class CProjectNode;
class StepEdit;
class Prompter;

// What the dialog needs from the project around the node.
struct NodeEditContext {
    // The start of the node list: the responsible persons already used are offered from it.
    const CProjectNode* firstNode = nullptr;
    // Copies of the document's recent texts; the dialog's own after an OK through Run.
    EntryHistories histories;
    // Takes the undo copy of the tree ("Backup Baum"). OK calls it before it validates, so a
    // refused OK has taken a copy too.
    std::function<void()> takeUndoCopy;
    // "Bearbeiter.dat", whose presets the entry combos offer.
    std::string presetFile;
};

class CNodeEditDlg : public QDialog {
    Q_OBJECT
public:
    CNodeEditDlg(CProjectNode& node, const NodeEditContext& context, Prompter& prompter,
                 QWidget* parent = nullptr);
    ~CNodeEditDlg() override;

    // Runs the dialog modally. Returns true on OK; the node is changed only then, and
    // context.histories then holds the histories as the user left them.
    static bool Run(QWidget* parent, CProjectNode& node, NodeEditContext& context, Prompter& prompter);

    const EntryHistories& Histories() const { return m_histories; }

    void accept() override;

private:
    QWidget* BuildKindGroup();
    QWidget* BuildResponsibleGroup();
    QLayout* BuildFormatButtons();
    QWidget* BuildDateRow();
    QWidget* BuildHoursGroup();
    void SetTabOrder(QDialogButtonBox* buttons);
    void LoadNode();
    void ConnectChanges();

    int SelectedKind() const;
    void ApplyVisibility();
    void RegenerateAutomaticEntries();
    void ShowReminderState();

    void MarkDoneClicked();
    void EditTextFormat();
    void EditReminder();
    void ChooseResponsible();

    CProjectNode& m_node;
    std::unique_ptr<CProjectNode> m_copy;
    NodeEditContext m_context;
    EntryHistories m_histories;
    Prompter& m_prompter;
    CTime m_doneStamp;
    std::string m_responsible;

    QLineEdit* m_title;
    QButtonGroup* m_kinds;
    QGroupBox* m_responsibleGroup;
    QPushButton* m_responsibleButton;
    QLabel* m_responsibleName;
    QGroupBox* m_startGroup;
    QDateEdit* m_start;
    QGroupBox* m_dueGroup;
    QDateEdit* m_due;
    QCheckBox* m_done;
    QPushButton* m_fontButton;
    QPushButton* m_alarmButton;
    QGroupBox* m_hoursGroup;
    StepEdit* m_planned;
    QLineEdit* m_needed;
    StepEdit* m_rate;
    EntryPanel* m_entries;
};

} // namespace velto
