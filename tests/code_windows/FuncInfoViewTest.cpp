#include "navigation/FuncInfoView.h"

#include <QApplication>
#include <QClipboard>

#include "CodeWindowProgram.h"

namespace {

const std::string kNumbers = ",ram=12.3,rom=40;\n";
const std::string kNothing = "The last build left no data on functions";

class FuncInfoView : public CodeWindowProgram {
protected:
    std::string Rows() {
        std::string text;
        for (int i = 0; i < List().RowCount(); ++i) {
            text += i ? "|" : "";
            for (const std::string &cell : List().Row(i).cells)
                text += (text.ends_with('|') || text.empty() ? "" : " ") + cell;
        }
        return text;
    }
    std::string JumpFrom(int row) {
        program.App().AddOutputLine(nullptr);
        List().SelectRow(row);
        QTest::keyClick(&List(), Qt::Key_Return);
        program.Settle();
        const std::string place = TakePlace();
        return place == "none" ? LastLine() : place;
    }
};

}  // namespace

TEST_F(FuncInfoView, ListsTheFunctionsOfTheActiveConfigurationsBuild) {
    EXPECT_EQ(Rows(), "");
    const std::string two =
        "main:\"main.asm\",line=27" + kNumbers + "class Led:set:\"led.asm\",line=3,ram=1.0,rom=9;\n";
    const std::string shown = "main 40 12 3|Led::set 9 1 0";
    Leave("Debug/blink.stat", two, 60);
    EXPECT_EQ(Rows(), shown);
    Leave("Debug/blink.stat", "other:\"\",line=0" + kNumbers, 60);  // by its time the file that is on show
    EXPECT_EQ(Rows(), shown);
    Leave("Debug/blink.stat", two + "bad", 30);
    EXPECT_EQ(Rows(), kNothing);
    EXPECT_EQ(JumpFrom(0), "");

    // A debug start reads again only what gave nothing.
    Leave("Debug/blink.stat", two, 20);
    scratch.Write("blink/Debug/blink.stat", "other:\"\",line=0" + kNumbers);
    Bar().LoadAll(true);
    EXPECT_EQ(Rows(), shown);
    Bar().LoadAll(false);
    EXPECT_EQ(Rows(), "other 40 12 3");
    Leave("Debug/blink.stat", "// nothing\n#HEAP_BLOCK:1,2,3;\n", 10);
    EXPECT_EQ(Rows(), kNothing);
    scratch.Write("blink/Debug/blink.stat", two);
    Bar().LoadAll(true);
    EXPECT_EQ(Rows(), shown);
    std::filesystem::remove(scratch.Native("blink/Debug/blink.stat"));
    Bar().LoadAll(false);
    EXPECT_EQ(Rows(), "");
}

TEST_F(FuncInfoView, LeadsToSourcesWhateverTheSorting) {
    Leave("Debug/blink.stat",
          "main(int, char *[]) : \"main.asm\", line=1" + kNumbers +  // 0
              "bare:\"main.asm\",line=5" + kNumbers +                // 1: not in the index, and without a folder
              "local:\".\\timer.asm\",line=20" + kNumbers +          // 2
              "unplaced:\".\\timer.asm\",line=0" + kNumbers +        // 3
              "lost:\"nowhere\\x.asm\",line=4" + kNumbers +          // 4
              "nothing:\"\",line=9" + kNumbers +                     // 5
              "#GLOBAL:\"main.asm\",line=0,ram=1.0,rom=1000;\n");    // 6
    KnowFunction("main", "main.asm", 27);
    const std::string expected[] = {"main.asm 27",
                                    "The source of 'bare' can't be shown",
                                    "timer.asm 20",
                                    "The source of 'unplaced' can't be shown",
                                    "The source of 'lost' can't be shown",
                                    "",
                                    "Global data has no place in a source file"};
    for (const bool sorted : {false, true}) {
        if (sorted) List().SortBy(1, Qt::DescendingOrder);  // brings the last row to the top
        for (int row = 0; row < 7; ++row)
            EXPECT_EQ(JumpFrom(row), expected[sorted ? (row + 6) % 7 : row]) << row << sorted;
    }
}

TEST_F(FuncInfoView, CopiesItsRowsByTheCommand) {
    Leave("Debug/blink.stat", "f:\"\",line=1" + kNumbers + "g:\"\",line=1" + kNumbers);
    program.App().OpenDocumentFile(scratch.Windows("blink/main.asm"));  // whose view gets commands first
    Show<CFuncInfoView>();
    EXPECT_FALSE(program.IsEnabled(ID_EDIT_COPY));
    EXPECT_FALSE(program.IsEnabled(ID_EDIT_FIND));  // would look through the listing behind
    List().SelectRow(1);
    EXPECT_TRUE(program.IsEnabled(ID_EDIT_COPY));
    program.Command(ID_EDIT_COPY);
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), "g\t40\t12\t3\n");
}
