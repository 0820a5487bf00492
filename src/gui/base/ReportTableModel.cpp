#include "base/ReportTableModel.h"

#include "base/Cp1252Text.h"

namespace velto {

void ReportTableModel::SetReport(std::unique_ptr<Report> report) {
    beginResetModel();
    m_report = std::move(report);
    endResetModel();
}

void ReportTableModel::RemoveReportRows(const std::vector<size_t>& rows) {
    beginResetModel();
    m_report->RemoveRows(rows);
    endResetModel();
}

int ReportTableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() || !m_report ? 0 : int(m_report->RowCount());
}

int ReportTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() || !m_report ? 0 : int(m_report->Columns().size()) + 1;
}

QVariant ReportTableModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || !m_report)
        return {};
    const size_t row = size_t(index.row());
    if (role == Qt::DisplayRole) {
        return ToQString(index.column() == 0 ? m_report->SortKey(row)
                                             : m_report->Cell(row, size_t(index.column() - 1)));
    }
    if (role == Qt::TextAlignmentRole && index.column() > 0) {
        const bool right = m_report->Columns()[size_t(index.column() - 1)].rightAligned;
        return QVariant::fromValue(Qt::AlignVCenter | (right ? Qt::AlignRight : Qt::AlignLeft));
    }
    return {};
}

QVariant ReportTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || !m_report)
        return {};
    return ToQString(m_report->Columns()[size_t(section == 0 ? 0 : section - 1)].header);
}

} // namespace velto
