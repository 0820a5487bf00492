#pragma once
// Shows a report in a table view: column 0 is the hidden sort key, the report's columns follow.
// Texts are formatted only for the rows the view asks for, so a report of hundreds of thousands
// of rows opens at once.
#include "outline/Report.h"

#include <QAbstractTableModel>

#include <memory>
#include <vector>

namespace velto {

class ReportTableModel : public QAbstractTableModel {
    Q_OBJECT
public:
    using QAbstractTableModel::QAbstractTableModel;

    void SetReport(std::unique_ptr<Report> report);
    const Report& GetReport() const { return *m_report; }
    // Takes rows out of the report (ascending, model rows).
    void RemoveReportRows(const std::vector<size_t>& rows);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    std::unique_ptr<Report> m_report;
};

} // namespace velto
