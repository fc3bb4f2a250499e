#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QElapsedTimer>
#include <QScrollBar>
#include <QTest>
#include <fstream>

#include "ScratchFiles.h"
#include "TreeHost.h"
#include "navigation/BrowseTreeModel.h"
#include "navigation/TabBrowseView.h"

namespace {

using Texts = std::vector<std::string>;

class BrowseTree : public testing::Test {
protected:
    void SetUp() override {
        std::ofstream(scratch.Native("p.__c")) << "[Files]\nCount=4\nFile0=main.c\nFile1=src\\LCD.c\nFile3=empty.c\n";
        host.projects = {{"p.__c", scratch.PathOf("p.__c"), true}};
        view.resize(240, 200);
        view.show();
    }
    void Add(SymbolMap SymbolMaps::*map, const std::string &name, const std::string &file) {
        BrowseRecord record;
        record.name = name;
        record.file = file;
        record.line = 1;
        (host.symbols.*map)[name] = record;
    }
    void AddSome() {
        Add(&SymbolMaps::Functions, "main", scratch.PathOf("main.c"));
        Add(&SymbolMaps::Functions, "lcd_put", scratch.PathOf("src\\lcd.C"));
        Add(&SymbolMaps::Variables, "main", scratch.PathOf("main.c"));
        Add(&SymbolMaps::Macros, "Macros", scratch.PathOf("main.c"));
        Add(&SymbolMaps::Macros, "NULL", "\\usr\\include\\b.h");
        Add(&SymbolMaps::Typedefs, "size_t", "\\usr\\include\\B.h");
        Add(&SymbolMaps::Containers, "point", "\\usr\\include\\a.h");
    }
    // "group: symbol symbol" for each top-level row, in brackets when it is folded.
    Texts Shown() {
        Texts shown;
        for (int row = 0; row < view.Rows().rowCount(); ++row) {
            const QModelIndex group = view.Rows().index(row, 0);
            std::string text = group.data().toString().toStdString() + ":";
            for (int child = 0; child < view.Rows().rowCount(group); ++child)
                text += " " + view.Rows().index(child, 0, group).data().toString().toStdString();
            shown.push_back(view.isExpanded(group) ? text : "[" + text + "]");
        }
        return shown;
    }
    QModelIndex Row(const std::string &group, const std::string &symbol) {
        return view.Rows().FindSymbol(view.Rows().FindGroup(group), symbol);
    }
    std::string FirstVisible() { return view.indexAt(QPoint(0, 0)).data().toString().toStdString(); }
    void DoubleClick(const QModelIndex &index) {
        view.scrollTo(index);
        const QPoint at = view.visualRect(index).center();
        QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, at);
        QTest::mouseDClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, at);
    }

    const ScratchFiles scratch;
    TreeHost host;
    CTabBrowseView view{host};
    QAbstractItemModelTester tester{&view.Rows(), QAbstractItemModelTester::FailureReportingMode::Fatal};
};

}  // namespace

TEST_F(BrowseTree, GroupsByCategoryAndByFile) {
    view.Rebuild(1);
    EXPECT_EQ(Shown(), Texts{});
    AddSome();
    view.Rebuild(1);
    EXPECT_EQ(Shown(), (Texts{"Containers: point", "Functions: lcd_put main", "Variables: main", "Macros: Macros NULL",
                              "Typedefs: size_t"}));
    view.Rebuild(2);
    EXPECT_EQ(Shown(), (Texts{"main.c: main main Macros", "src/LCD.c: lcd_put", "empty.c:", "/usr/include/a.h: point",
                              "/usr/include/b.h: NULL", "/usr/include/B.h: size_t"}));
    host.projects.clear();
    view.Clear();
    EXPECT_EQ(Shown(), Texts{});
}

TEST_F(BrowseTree, TellsProjectFilesApartThatDifferInCaseOnly) {
    std::ofstream(scratch.Native("p.__c")) << "[Files]\nCount=2\nFile0=a.c\nFile1=A.c\n";
    Add(&SymbolMaps::Functions, "lower", scratch.PathOf("a.c"));
    Add(&SymbolMaps::Functions, "upper", scratch.PathOf("A.c"));
    Add(&SymbolMaps::Functions, "relative", ".\\A.c");
    view.Rebuild(2);
    EXPECT_EQ(Shown(), (Texts{"a.c: lower", "A.c: relative upper"}));
}

TEST_F(BrowseTree, OpensTheSymbolOfARow) {
    AddSome();
    for (const int grouping : {1, 2}) {
        view.Rebuild(grouping);
        const bool byFile = grouping == 2;
        DoubleClick(Row(byFile ? "src\\LCD.c" : "Functions", "lcd_put"));
        view.setCurrentIndex(Row(byFile ? "main.c" : "Macros", "Macros"));
        QTest::keyClick(&view, Qt::Key_Return);
        EXPECT_EQ(host.TakeCalls(), (Texts{"symbol lcd_put", "symbol Macros"})) << grouping;

        const QModelIndex group = view.Rows().index(0, 0);
        DoubleClick(group);
        EXPECT_FALSE(view.isExpanded(group));
        QTest::keyClick(&view, Qt::Key_Return);
        EXPECT_TRUE(view.isExpanded(group));
        EXPECT_EQ(host.TakeCalls(), Texts{});
    }
    // Rows outlive their records, and a record of that name that came later isn't theirs.
    host.symbols.Functions.clear();
    DoubleClick(Row("main.c", "main"));
    Add(&SymbolMaps::Functions, "main", "\\other.c");
    DoubleClick(Row("main.c", "main"));
    EXPECT_EQ(host.TakeCalls(), Texts{});
}

TEST_F(BrowseTree, KeepsWhatIsFoldedAndUnfoldsWhatIsNew) {
    AddSome();
    view.Rebuild(1);
    view.collapse(view.Rows().FindGroup("Macros"));
    Add(&SymbolMaps::Enums, "red", "\\usr\\include\\a.h");
    Add(&SymbolMaps::Macros, "EOF", "\\usr\\include\\a.h");
    view.Rebuild(1);
    EXPECT_EQ(Shown(), (Texts{"Containers: point", "Functions: lcd_put main", "Variables: main", "Enums: red",
                              "[Macros: EOF Macros NULL]", "Typedefs: size_t"}));
}

TEST_F(BrowseTree, KeepsTheFirstRowOnShow) {
    AddSome();
    for (int i = 0; i < 200; ++i) {
        Add(&SymbolMaps::Functions, "f" + std::to_string(1000 + i), scratch.PathOf("main.c"));
        Add(&SymbolMaps::Macros, "M" + std::to_string(1000 + i), scratch.PathOf("main.c"));
    }
    view.Rebuild(1);
    EXPECT_EQ(FirstVisible(), "Containers");
    view.setCurrentIndex(Row("Functions", "f1010"));
    view.scrollTo(Row("Macros", "M1050"), QAbstractItemView::PositionAtTop);
    ASSERT_EQ(FirstVisible(), "M1050");

    Add(&SymbolMaps::Enums, "red", "\\usr\\include\\a.h");
    view.Rebuild(1);
    EXPECT_EQ(FirstVisible(), "M1050");
    EXPECT_EQ(view.currentIndex().data().toString().toStdString(), "f1010");
    QTest::qWait(1);
    EXPECT_EQ(FirstVisible(), "M1050") << "the current row pulls nothing into view";

    host.symbols.Macros.erase("M1050");
    view.Rebuild(1);
    EXPECT_EQ(FirstVisible(), "Macros") << "the row is gone";

    view.scrollTo(Row("Macros", "M1051"), QAbstractItemView::PositionAtTop);
    view.Rebuild(2);
    EXPECT_EQ(FirstVisible(), "main.c") << "the category is gone";
}

TEST_F(BrowseTree, TakesManySymbolsAndLongNames) {
    Add(&SymbolMaps::Functions, std::string(10'000, 'n'), "\\" + std::string(10'000, 'd') + "\\x.h");
    for (const SymbolCategory &category : kSymbolCategories)
        for (int i = 0; i < 10'000; ++i)
            Add(category.map, "symbol" + std::to_string(i), "\\usr\\include\\h" + std::to_string(i % 1000) + ".h");
    QElapsedTimer clock;
    for (const int grouping : {1, 2}) {
        clock.start();
        view.Rebuild(grouping);
        QCoreApplication::processEvents();
        EXPECT_LT(clock.elapsed(), 1500) << grouping;  // milliseconds; many times what an unoptimised build needs
    }
    EXPECT_EQ(view.Rows().rowCount(), 3 + 1000 + 1);
}
