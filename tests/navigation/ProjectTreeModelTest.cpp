#include "navigation/ProjectTreeModel.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QFont>
#include <QSignalSpy>

#include "ScratchFiles.h"
#include "TreeHost.h"

namespace {

using Texts = std::vector<std::string>;

// The model under the watch of Qt's own checks, which fail the test on a broken promise.
class ProjectTreeModel : public testing::Test {
 protected:
    Texts RowsBelow(const QModelIndex &parent) const {
        Texts texts;
        for (int row = 0; row < model.rowCount(parent); ++row)
            texts.push_back(model.data(model.index(row, 0, parent), Qt::DisplayRole).toString().toStdString());
        return texts;
    }
    QFont FontOf(const QModelIndex &index) const { return model.data(index, Qt::FontRole).value<QFont>(); }

    CProjectTreeModel model;
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
    const ProjectEntry blink =
        MakeProject("\\w", "blink.__c", true, {"main.asm", "src\\delay.asm", "Clock.inc"}, {"Debug/blink.hex"});
    const ProjectEntry meter = MakeProject("\\w\\m", "m\\meter.__c", false, {"meter.asm"});
};

}  // namespace

TEST_F(ProjectTreeModel, ShowsProjectsWithSortedFilesAndOutputs) {
    model.SetProjects({blink, meter});
    EXPECT_EQ(RowsBelow({}), (Texts{"blink.__c", "m/meter.__c"}));
    const QModelIndex first = model.FindProject("\\W/BLINK.__c");
    EXPECT_EQ(RowsBelow(first), (Texts{"Clock.inc", "main.asm", "src/delay.asm", "Output"}));
    EXPECT_EQ(RowsBelow(model.FindOutputFolder(blink.path)), (Texts{"Debug/blink.hex"}));
    EXPECT_EQ(RowsBelow(model.FindProject(meter.path)), (Texts{"meter.asm"}));
    EXPECT_TRUE(FontOf(first).bold());
    EXPECT_FALSE(FontOf(model.FindProject(meter.path)).bold());
}

TEST_F(ProjectTreeModel, FollowsFilesThatComeAndGo) {
    model.SetProjects({blink});
    const QModelIndex project = model.FindProject(blink.path);
    model.AddFile(blink.path, {"lcd.asm", "\\w\\lcd.asm"});
    model.AddFile(blink.path, {"zero.lib", "\\w\\zero.lib"});
    model.AddFile(blink.path, {"LCD.ASM", "\\w/LCD.ASM"});  // is there
    model.AddFile("\\other.__c", {"x.asm", "\\x.asm"});
    model.RemoveFile(blink.path, "\\w\\Main.asm");
    model.RemoveFile(blink.path, "\\w\\unknown.asm");
    EXPECT_EQ(RowsBelow(project), (Texts{"Clock.inc", "lcd.asm", "src/delay.asm", "zero.lib", "Output"}));
}

TEST_F(ProjectTreeModel, FollowsProjectsThatComeAndGo) {
    model.SetProjects({});
    ASSERT_EQ(RowsBelow({}), Texts{"empty"});
    EXPECT_EQ(model.KindOf(model.index(0, 0)), RowKind::empty);
    model.AddProject(meter);
    model.AddProject(blink);
    model.AddProject(meter);  // once more: in its old place
    EXPECT_EQ(RowsBelow({}), (Texts{"m/meter.__c", "blink.__c"}));
    EXPECT_TRUE(model.InActiveProject(model.FindOutputFolder(blink.path)));

    model.SetActiveProject(meter.path);
    EXPECT_TRUE(FontOf(model.FindProject(meter.path)).bold());
    EXPECT_FALSE(model.InActiveProject(model.FindOutputFolder(blink.path)));

    model.RemoveProject(meter.path);
    model.RemoveProject(blink.path);
    EXPECT_EQ(RowsBelow({}), Texts{"empty"});
    model.Clear();
    EXPECT_EQ(model.rowCount(), 0);
}

TEST_F(ProjectTreeModel, TouchesOnlyOutputRowsThatChange) {
    ProjectEntry project = MakeProject("\\w", "blink.__c", true, {"main.asm"}, {"a", "b", "c"});
    model.SetProjects({project});
    const QPersistentModelIndex kept = model.FindRow(project.path, RowKind::outputFile, "\\w\\c");
    QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
    QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);

    model.SetOutputs(project);
    EXPECT_EQ(inserted.count() + removed.count(), 0);

    project.outputs = MakeProject("\\w", "", false, {}, {"new", "b", "c", "d"}).outputs;
    model.SetOutputs(project);
    EXPECT_EQ(RowsBelow(model.FindOutputFolder(project.path)), (Texts{"new", "b", "c", "d"}));
    EXPECT_TRUE(kept.isValid());

    std::swap(project.outputs[0], project.outputs[3]);
    model.SetOutputs(project);
    EXPECT_EQ(RowsBelow(model.FindOutputFolder(project.path)), (Texts{"d", "b", "c", "new"}));

    project.outputs = MakeProject("\\w", "", false, {}, {"b", "b", "new"}).outputs;
    model.SetOutputs(project);
    EXPECT_EQ(RowsBelow(model.FindOutputFolder(project.path)), (Texts{"b", "b", "new"}));
    project.outputs.erase(project.outputs.begin());
    model.SetOutputs(project);
    EXPECT_EQ(RowsBelow(model.FindOutputFolder(project.path)), (Texts{"b", "new"}));

    project.hasOutputs = false;
    model.SetOutputs(project);
    EXPECT_EQ(RowsBelow(model.FindProject(project.path)), (Texts{"main.asm"}));
    project.hasOutputs = true;
    project.outputs.clear();
    model.SetOutputs(project);
    EXPECT_EQ(RowsBelow(model.FindProject(project.path)), (Texts{"main.asm", "Output"}));
}

TEST_F(ProjectTreeModel, MarksFilesThatAreMissing) {
    const ScratchFiles scratch;
    ProjectEntry project{"p.__c", scratch.PathOf("p.__c")};
    project.files = {{"a.asm", scratch.Make("a.asm")}, {"b.asm", scratch.PathOf("b.asm"), false}};
    project.outputs = {{"p.hex", scratch.PathOf("p.hex"), false}};
    project.hasOutputs = true;
    model.SetProjects({project});
    const QModelIndex output = model.FindRow(project.path, RowKind::outputFile, project.outputs[0].path);
    EXPECT_TRUE(FontOf(output).italic());
    const QModelIndex a = model.FindRow(project.path, RowKind::file, project.files[0].path);
    const QModelIndex b = model.FindRow(project.path, RowKind::file, project.files[1].path);
    EXPECT_EQ(model.data(a, Qt::ToolTipRole).toString().toStdString(), scratch.Native("a.asm").string());
    EXPECT_FALSE(FontOf(a).italic());
    EXPECT_TRUE(FontOf(b).italic());
    EXPECT_TRUE(model.data(b, Qt::ToolTipRole).toString().contains("doesn't exist"));

    std::filesystem::remove(scratch.Native("a.asm"));
    scratch.Make("b.asm");
    scratch.Make("p.hex");
    model.LookForFiles();
    EXPECT_FALSE(FontOf(output).italic());
    EXPECT_TRUE(FontOf(a).italic());
    EXPECT_FALSE(FontOf(b).italic());
}
