#include "dialogs/NodeDialogs.h"

#include "common/Prompter.h"
#include "dialogs/CAssigneeDlg.h"
#include "dialogs/CClockOutDlg.h"
#include "dialogs/CNodeEditDlg.h"
#include "document/CVeltoDoc.h"
#include "files/DataDir.h"

namespace velto {

namespace {

EntryHistories HistoriesOf(const CVeltoDoc& doc) {
    return {doc.m_strAssigneeHistory, doc.m_strRemarkHistory};
}

void StoreHistories(CVeltoDoc& doc, const EntryHistories& histories) {
    doc.m_strAssigneeHistory = histories.assignee;
    doc.m_strRemarkHistory = histories.remark;
}

} // namespace

bool EditNodeOfDocument(QWidget* parent, CVeltoDoc& doc, CProjectNode& node, Prompter& prompter) {
    NodeEditContext context{doc.m_pFirstNode, HistoriesOf(doc), [&doc] { doc.BackupTree(); },
                            AssigneeFilePath()};
    if (!CNodeEditDlg::Run(parent, node, context, prompter))
        return false;
    StoreHistories(doc, context.histories);
    doc.SetModifiedFlag();
    doc.UpdateAllViews();
    return true;
}

bool ClockOutNodeOfDocument(QWidget* parent, CVeltoDoc& doc, CProjectNode& node, Prompter& prompter) {
    EntryHistories histories = HistoriesOf(doc);
    const bool added = ClockOut(parent, node, histories, prompter);
    if (added) {
        StoreHistories(doc, histories);
        doc.SetModifiedFlag();
    }
    // The running-clock mark goes away either way.
    doc.UpdateAllViews();
    return added;
}

bool EditAssigneePresets(QWidget* parent, Prompter& prompter) {
    EnsureDataDirectory();
    CAssigneeDlg dialog(AssigneeFilePath(), prompter, parent);
    return dialog.exec() == QDialog::Accepted;
}

} // namespace velto
