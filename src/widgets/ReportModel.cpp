#include "widgets/ReportModel.h"

#include <algorithm>
#include <numeric>

#include "framework/Text.h"
#include "widgets/ReportOrder.h"

namespace {

const std::string &CellOf(const ReportRow &row, int column) {
    static const std::string empty;
    return static_cast<size_t>(column) < row.cells.size() ? row.cells[static_cast<size_t>(column)] : empty;
}

}  // namespace

void CReportModel::SetColumns(std::vector<ReportColumn> columns) {
    beginResetModel();
    columns_ = std::move(columns);
    endResetModel();
}

void CReportModel::SetRows(std::vector<ReportRow> rows) {
    beginResetModel();
    rows_ = std::move(rows);
    if (sortColumn_ >= 0) PutInOrder(SortedPlaces());
    endResetModel();
}

int CReportModel::FindRow(const std::vector<std::string> &cells) const {
    const auto found = std::ranges::find(rows_, cells, &ReportRow::cells);
    return found == rows_.end() ? -1 : static_cast<int>(found - rows_.begin());
}

int CReportModel::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int CReportModel::columnCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant CReportModel::data(const QModelIndex &index, int role) const {
    if (!index.isValid()) return {};
    const ReportRow &row = Row(index.row());
    switch (role) {
        case Qt::DisplayRole:
            return ToQString(CellOf(row, index.column()));
        case Qt::TextAlignmentRole:
            return headerData(index.column(), Qt::Horizontal, role);
        default:
            return {};
    }
}

QVariant CReportModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
    const ReportColumn &column = columns_[static_cast<size_t>(section)];
    if (role == Qt::DisplayRole) return ToQString(column.title);
    if (role == Qt::TextAlignmentRole)
        return QVariant(Qt::Alignment((column.toRight ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter));
    return {};
}

void CReportModel::sort(int column, Qt::SortOrder order) {
    sortColumn_ = column < columnCount() ? column : -1;
    sortOrder_ = order;
    if (sortColumn_ < 0 || rows_.empty()) return;
    emit layoutAboutToBeChanged({}, VerticalSortHint);
    const std::vector<size_t> places = SortedPlaces();
    std::vector<int> newPlaces(places.size());
    for (size_t i = 0; i < places.size(); ++i) newPlaces[places[i]] = static_cast<int>(i);
    PutInOrder(places);
    const QModelIndexList before = persistentIndexList();
    QModelIndexList after;
    for (const QModelIndex &each : before) after << index(newPlaces[static_cast<size_t>(each.row())], each.column());
    changePersistentIndexList(before, after);
    emit layoutChanged({}, VerticalSortHint);
}

std::vector<size_t> CReportModel::SortedPlaces() const {
    std::vector<CReportSortKey> keys;
    keys.reserve(rows_.size());
    for (const ReportRow &row : rows_) keys.emplace_back(CellOf(row, sortColumn_));
    std::vector<size_t> places(rows_.size());
    std::iota(places.begin(), places.end(), size_t{0});
    std::ranges::stable_sort(places, [&](size_t a, size_t b) {
        return sortOrder_ == Qt::AscendingOrder ? keys[a] < keys[b] : keys[b] < keys[a];
    });
    return places;
}

void CReportModel::PutInOrder(const std::vector<size_t> &places) {
    std::vector<ReportRow> sorted;
    sorted.reserve(rows_.size());
    for (const size_t place : places) sorted.push_back(std::move(rows_[place]));
    rows_ = std::move(sorted);
}
