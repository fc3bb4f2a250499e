#include <gtest/gtest.h>

#include <QClipboard>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QPainter>
#include <QScrollBar>
#include <QTest>
#include <vector>

#include "build/ListBoxForFlatTabCtrl.h"

namespace {

class ListBox : public CListBoxForFlatTabCtrl {
public:
    ListBox() : CListBoxForFlatTabCtrl(1, nullptr) {
        resize(400, 200);
        show();
        Settle();
    }
    void Settle() {
        QTest::qWait(40);
        QCoreApplication::processEvents();
    }
    int TopIndex() const { return verticalScrollBar()->value(); }
    int RowsShown() const { return verticalScrollBar()->pageStep(); }
    QPoint At(int index) const { return RowRect(index).center(); }
    void Fill(int count) {
        for (int i = 0; i < count; ++i) AddLine("line " + std::to_string(i));
        Settle();
    }

    std::vector<int> activated, clicked;
    mutable int drawn = 0;
    bool clearOnClick = false;

protected:
    void OnActivate(int index) override { activated.push_back(index); }
    void OnClick(int index) override {
        clicked.push_back(index);
        if (clearOnClick) ResetContent();
    }
    void DrawText(QPainter &painter, const Row &row) const override {
        ++drawn;
        CListBoxForFlatTabCtrl::DrawText(painter, row);
    }
};

TEST(ListBox, FollowsTheNewestLine) {
    ListBox list;
    list.Fill(100);
    EXPECT_EQ(list.GetCurSel(), 99);
    EXPECT_EQ(list.TopIndex() + list.RowsShown(), 100);
    EXPECT_EQ(list.GetText(99), "line 99");
    EXPECT_EQ(list.GetText(100), "");
    EXPECT_EQ(list.GetText(-1), "");
    list.ResetContent();
    list.Settle();
    EXPECT_EQ(list.GetCurSel(), -1);
    EXPECT_EQ(list.GetCount(), 0);
    EXPECT_EQ(list.verticalScrollBar()->maximum(), 0);
}

TEST(ListBox, MovesByKeys) {
    ListBox list;
    list.Fill(100);
    const int page = list.RowsShown() - 1;
    const struct {
        Qt::Key key;
        int expected;
    } steps[] = {
        {Qt::Key_Down, 99}, {Qt::Key_Up, 98},  {Qt::Key_PageUp, 98 - page},  {Qt::Key_Home, 0},
        {Qt::Key_Up, 0},    {Qt::Key_Down, 1}, {Qt::Key_PageDown, 1 + page}, {Qt::Key_End, 99},
    };
    for (const auto &step : steps) {
        QTest::keyClick(&list, step.key);
        EXPECT_EQ(list.GetCurSel(), step.expected) << step.key;
        list.Settle();
        EXPECT_FALSE(list.RowRect(step.expected).isEmpty()) << step.key;  // it is in view
    }
    QTest::keyClick(&list, Qt::Key_Return);
    EXPECT_EQ(list.activated, std::vector<int>{99});
    QTest::keyClick(&list, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "line 99");

    ListBox empty;
    for (const auto &step : steps) QTest::keyClick(&empty, step.key);
    QTest::keyClick(&empty, Qt::Key_Return);
    EXPECT_EQ(empty.GetCurSel(), -1);
    EXPECT_TRUE(empty.activated.empty());
}

TEST(ListBox, TakesTheMouse) {
    ListBox list;
    list.Fill(5);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.At(2));
    EXPECT_EQ(list.GetCurSel(), 2);
    EXPECT_EQ(list.clicked, std::vector<int>{2});
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, {10, 190});  // below the last line
    EXPECT_EQ(list.GetCurSel(), 2);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, list.At(3));
    EXPECT_EQ(list.activated, std::vector<int>{3});
    list.clearOnClick = true;
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.At(1));
    EXPECT_EQ(list.GetCurSel(), -1);
}

TEST(ListBox, ScrollsToTheEndOfTheLongestLine) {
    ListBox list;
    list.AddLine("short");
    list.AddLine(std::string(100000, 'x') + "\ttail");
    list.Settle();
    QScrollBar *bar = list.horizontalScrollBar();
    EXPECT_GT(bar->maximum(), 100000);
    bar->setValue(bar->maximum());
    const QImage picture = list.grab().toImage();
    const QColor background = picture.pixelColor(5, picture.height() - 30);
    const QRect row = list.RowRect(1);
    bool textShows = false;
    for (int x = row.right() - 60; x < row.right(); ++x)
        for (int y = row.top(); y < row.bottom(); ++y)
            textShows = textShows || picture.pixelColor(x, y) == list.palette().color(QPalette::HighlightedText);
    EXPECT_TRUE(textShows) << background.name().toStdString();
}

TEST(ListBox, TakesAMillionLinesAndPaintsOnlyWhatShows) {
    ListBox list;
    QElapsedTimer clock;
    clock.start();
    for (int i = 0; i < 1'000'000; ++i) list.AddLine("main.c(12): error: a short line");
    const qint64 added = clock.restart();
    list.drawn = 0;
    list.grab();
    EXPECT_LT(added, 10000);
    EXPECT_LT(clock.elapsed(), 500);
    EXPECT_LE(list.drawn, list.RowsShown() + 1);
}

TEST(ListBox, CopiesAllLines) {
    ListBox list;
    list.AddLine("gr\u00FCn");
    list.AddLine("");
    list.AddLine("end");
    EXPECT_TRUE(list.CopyAll());
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QString::fromUtf8("gr\u00FCn\r\n\r\nend\r\n"));
}

}  // namespace
