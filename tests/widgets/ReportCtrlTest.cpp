#include "widgets/ReportCtrl.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QHelpEvent>
#include <QScrollBar>
#include <QTest>
#include <QToolTip>

namespace {

using Texts = std::vector<std::string>;

class ReportCtrl : public testing::Test {
protected:
    void SetUp() override {
        list.SetColumns({{"Name", 10}, {"Size", 8, true}, {"Note", 4, false, true}});
        list.resize(500, 300);
        list.show();
        list.onActivate = [this](intptr_t data) { activated.push_back(data); };
    }
    void FillWithThree() { list.SetRows({{{"beta", "9"}, 1}, {{"Alpha", "100"}, 2}, {{"gamma"}, std::nullopt}}); }
    Texts Names() const {
        Texts names;
        for (int i = 0; i < list.RowCount(); ++i) names.push_back(list.Row(i).cells[0]);
        return names;
    }
    void ClickHeader(int column) {
        QHeaderView *header = list.header();
        const QPoint at(header->sectionViewportPosition(column) + 10, header->height() / 2);
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, at);
    }
    QRect Place(int row, int column) { return list.visualRect(list.model()->index(row, column)); }
    QString TipAt(const QPoint &at) {
        QToolTip::hideText();
        QHelpEvent event(QEvent::ToolTip, at, list.viewport()->mapToGlobal(at));
        QApplication::sendEvent(list.viewport(), &event);
        return QToolTip::text();
    }

    CReportCtrl list;
    std::vector<intptr_t> activated;
};

}  // namespace

TEST_F(ReportCtrl, SortsByItsHeadersAndKeepsTheSelectedRow) {
    FillWithThree();
    EXPECT_EQ(Names(), (Texts{"beta", "Alpha", "gamma"}));
    list.SelectRow(0);
    ClickHeader(1);
    EXPECT_EQ(Names(), (Texts{"gamma", "beta", "Alpha"}));
    EXPECT_EQ(list.CurrentRow(), 1);
    EXPECT_TRUE(list.header()->isSortIndicatorShown());
    ClickHeader(1);
    EXPECT_EQ(Names(), (Texts{"Alpha", "beta", "gamma"}));
    QTest::keyClick(&list, Qt::Key_1, Qt::ControlModifier);
    EXPECT_EQ(Names(), (Texts{"Alpha", "beta", "gamma"}));
    QTest::keyClick(&list, Qt::Key_1, Qt::ControlModifier);
    EXPECT_EQ(Names(), (Texts{"gamma", "beta", "Alpha"}));
    EXPECT_EQ(list.SelectedText(), "beta\t9\n");

    list.SetRows({{{"delta", "1"}}, {{"zeta", "2"}}, {{"beta", "9"}}});
    EXPECT_EQ(Names(), (Texts{"zeta", "delta", "beta"}));  // by the sorting in force
    EXPECT_EQ(list.CurrentRow(), 2);
}

TEST_F(ReportCtrl, TellsTheRowOfADoubleClickAndOfReturn) {
    FillWithThree();
    list.SortBy(0, Qt::DescendingOrder);  // gamma, beta, alpha
    const QPoint beta = Place(1, 1).center();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, beta);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, beta);
    list.SelectRow(2);
    QTest::keyClick(&list, Qt::Key_Enter, Qt::KeypadModifier);
    list.SelectRow(0);  // without data
    QTest::keyClick(&list, Qt::Key_Return);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, QPoint(20, 250));  // below all rows
    EXPECT_EQ(activated, (std::vector<intptr_t>{1, 2}));
}

TEST_F(ReportCtrl, CopiesTheSelectedRowsAsTheyStand) {
    FillWithThree();
    list.SortBy(0);
    list.SelectRow(0);
    QTest::keyClick(&list, Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(&list, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), "Alpha\t100\nbeta\t9\n");
}

TEST_F(ReportCtrl, ShowsCutTextsInATip) {
    const std::string marks(300, '<');
    list.SetRows({{{"short", "", "vector<int> & more, " + marks}}});
    EXPECT_EQ(TipAt(Place(0, 0).center()), QString());
    const QString tip = TipAt(Place(0, 2).center());
    EXPECT_TRUE(tip.contains("vector&lt;int&gt; &amp; more")) << qPrintable(tip);
    list.header()->resizeSection(0, 20);
    EXPECT_TRUE(TipAt(Place(0, 0).center()).contains("short"));
}

TEST_F(ReportCtrl, TakesAHundredThousandRows) {
    std::vector<ReportRow> rows;
    for (int i = 0; i < 100000; ++i)
        rows.push_back({{"function_" + std::to_string(i * 7919 % 100000), std::to_string(i)}, i});
    QElapsedTimer clock;
    clock.start();
    list.SetRows(std::move(rows));
    list.grab();
    const qint64 fill = clock.restart();
    list.SortBy(0);
    list.grab();
    const qint64 sort = clock.restart();
    EXPECT_EQ(list.Row(1).cells[0], "function_1");
    EXPECT_LT(fill, 500);  // milliseconds; many times what an unoptimised build needs
    EXPECT_LT(sort, 3000);
    RecordProperty("fill", static_cast<int>(fill));
    RecordProperty("sort", static_cast<int>(sort));

    list.verticalScrollBar()->setValue(500);
    list.SetRows(std::vector<ReportRow>(1000, {{"x"}}));
    EXPECT_EQ(list.verticalScrollBar()->value(), 500);
    list.Clear();
    EXPECT_EQ(list.RowCount(), 0);
}
