#include "navigation/TabTodoView.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTest>
#include <fstream>

#include "ScratchFiles.h"
#include "TreeHost.h"
#include "widgets/ReportCtrl.h"

namespace {

using Texts = std::vector<std::string>;

class TodoView : public testing::Test {
protected:
    void Write(const std::string &name, const std::string &text) {
        scratch.Make(name);
        std::ofstream(scratch.Native(name), std::ios::binary) << text;
    }
    void WriteProject(const Texts &files) {
        std::string text = "[Files]\r\nCount=" + std::to_string(files.size()) + "\r\n";
        for (size_t i = 0; i < files.size(); ++i) text += "File" + std::to_string(i) + "=" + files[i] + "\r\n";
        Write("p.__c", text);
    }
    Texts Rows() {
        Texts rows;
        for (int place = 0; place < view.Report().RowCount(); ++place) {
            const auto &cells = view.Report().Row(place).cells;
            rows.push_back(cells[0] + " " + cells[1]);
        }
        return rows;
    }

    const ScratchFiles scratch;
    const std::string project = scratch.PathOf("p.__c");
    TreeHost host;
    CTabTodoView view{host};
};

}  // namespace

TEST_F(TodoView, ListsTheProjectAndFollowsASave) {
    WriteProject({"main.c", "src\\lcd.c", "gone.c", "empty.c"});
    Write("main.c", "// todo m1\n\n// fixme m2\n");
    Write("src/lcd.c", "; TODO: l1");
    Write("empty.c", "");
    Write("other.c", "// todo other\n");
    view.Scan(project);
    EXPECT_EQ(Rows(), (Texts{"FIXME m2", "TODO m1", "TODO l1"}));

    view.Report().SelectRow(2);
    QTest::keyClick(&view.Report(), Qt::Key_Return);
    view.Report().SelectRow(0);
    QTest::keyClick(&view.Report(), Qt::Key_Return);
    EXPECT_EQ(host.TakeCalls(), (Texts{"line src\\lcd.c:1", "line main.c:3"}));

    Write("src/lcd.c", "\ttodo l2\x01\x02\n fixme l3");
    Write("main.c", "");
    view.Scan(project, scratch.PathOf("SRC\\lcd.C"));
    EXPECT_EQ(Rows(), (Texts{"FIXME m2", "FIXME l3", "TODO m1", "TODO l2"})) << "only one file is read";
    view.Scan(project, scratch.PathOf("other.c"));
    EXPECT_EQ(Rows().size(), 4u) << "not in the project";
    view.Scan(project, "main.c");
    EXPECT_EQ(Rows(), (Texts{"FIXME l3", "TODO l2"}));

    view.Scan({});
    EXPECT_EQ(Rows(), Texts{});
    EXPECT_TRUE(view.Records().empty());
}

TEST_F(TodoView, DoesNotHoldTheProgramUpForManyFiles) {
    Texts files;
    const std::string code(20'000, 'x');
    for (int i = 0; i < 1000; ++i) {
        files.push_back("f" + std::to_string(i) + ".c");
        Write(files.back(), code + "\n// todo " + std::to_string(i) + "\n");
    }
    WriteProject(files);
    QElapsedTimer clock;
    clock.start();
    view.Scan(project);
    EXPECT_LT(clock.elapsed(), 500);  // milliseconds; many times what a step may take
    // A save that comes in between is neither lost nor listed twice.
    Write("f999.c", "// todo saved\n");
    view.Scan(project, scratch.PathOf("f999.c"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return view.Report().RowCount() == 1000; }, 20000)) << Rows().size();
    EXPECT_EQ(Rows()[999], "TODO saved");
}

TEST_F(TodoView, ShowsLongAndOddRemarksOnOneLine) {
    WriteProject({"a.c"});
    std::string text = "todo a\tb ";
    for (int i = 0; i < 10'000; ++i) text += "\xc3\xa4";
    Write("a.c", text + "z");
    view.Scan(project);
    ASSERT_EQ(view.Report().RowCount(), 1);
    const std::string cell = view.Report().Row(0).cells[1];
    EXPECT_TRUE(cell.starts_with("a b \xc3\xa4"));
    EXPECT_LE(cell.size(), 500u);
    EXPECT_EQ(cell.size() % 2, 0u) << "cut between characters";
    EXPECT_EQ(view.Records()[0].text.size(), text.size() - 5 + 1);
}
