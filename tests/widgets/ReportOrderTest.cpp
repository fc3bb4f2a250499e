#include "widgets/ReportOrder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

TEST(ReportOrder, PutsNumbersByValueAndTextsWithoutCase) {
    const std::vector<std::string> ordered = {"",     "-12",     "-3.5",   "0",     "7%",     "0x0a",
                                              "+11",  "12.25 %", "0xFFFF", "70000", "1e9",    "alpha",
                                              "Beta", "gamma",   "inf",    "nan",   "rom 10", "x1"};
    std::vector<std::string> cells = ordered;
    std::shuffle(cells.begin(), cells.end(), std::mt19937(7));
    std::stable_sort(cells.begin(), cells.end(),
                     [](const auto &a, const auto &b) { return CReportSortKey(a) < CReportSortKey(b); });
    EXPECT_EQ(cells, ordered);
    EXPECT_FALSE(CReportSortKey("MAIN") < CReportSortKey("main"));
    EXPECT_FALSE(CReportSortKey("main") < CReportSortKey("MAIN"));
    EXPECT_FALSE(CReportSortKey(" 12") < CReportSortKey("0x0c"));
}
