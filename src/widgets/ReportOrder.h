// The order in which a report list sorts its cells.
#pragma once

#include <QString>
#include <string>

// Empty cells come first, then numbers by their value, then texts without regard to case. Numbers are decimal, with
// sign and point and a "%" behind them, or hexadecimal with "0x".
class CReportSortKey {
public:
    CReportSortKey() = default;
    explicit CReportSortKey(const std::string &cell);

    bool operator<(const CReportSortKey &other) const;

private:
    enum class Kind { empty, number, text };
    Kind kind_ = Kind::empty;
    double number_ = 0;
    QString text_;  // folded
};
