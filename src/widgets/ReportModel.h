// The rows behind a CReportCtrl.
#pragma once

#include <QAbstractTableModel>

#include "widgets/ReportRow.h"

class CReportModel : public QAbstractTableModel {
public:
    using QAbstractTableModel::QAbstractTableModel;

    void SetColumns(std::vector<ReportColumn> columns);
    void SetRows(std::vector<ReportRow> rows);  // in the order of the present sorting
    const ReportRow &Row(int place) const { return rows_[static_cast<size_t>(place)]; }
    int FindRow(const std::vector<std::string> &cells) const;  // -1: none

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    void sort(int column, Qt::SortOrder order) override;  // equal rows keep their order; column -1: no more sorting

private:
    std::vector<size_t> SortedPlaces() const;
    void PutInOrder(const std::vector<size_t> &places);

    std::vector<ReportColumn> columns_;
    std::vector<ReportRow> rows_;
    int sortColumn_ = -1;
    Qt::SortOrder sortOrder_ = Qt::AscendingOrder;
};
