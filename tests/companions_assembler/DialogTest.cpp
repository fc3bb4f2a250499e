#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <functional>

#include "ScratchProject.h"
#include "platform/Profile.h"

namespace {

void StartQt() {
    static int argc = 1;
    static char name[] = "tests", *argv[] = {name, nullptr};
    if (qApp) return;
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    new QApplication(argc, argv);
}

// Does `work` in the dialog that is opened next, and keeps a picture of it when $DIALOG_PICTURES names a directory.
void WithDialog(const std::string &picture, std::function<void(QDialog &)> work) {
    QTimer::singleShot(50, [picture, work = std::move(work)] {
        auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        work(*dialog);
        const char *directory = getenv("DIALOG_PICTURES");
        if (directory && dialog->isVisible()) dialog->grab().save(QString("%1/%2.png").arg(directory, picture.c_str()));
        if (dialog->isVisible()) dialog->reject();
    });
}

void Press(QDialog &dialog, QDialogButtonBox::StandardButton button) {
    dialog.findChild<QDialogButtonBox *>()->button(button)->click();
}

struct HostPages {
    QWidget first, second;
    QWidget *pages[2] = {&first, &second};
    HostPages() {
        first.setWindowTitle("Browser");
        second.setWindowTitle("Debugger");
        (new QVBoxLayout(&first))->addWidget(new QCheckBox("Use system headers"));
    }
};

}  // namespace

TEST(TargetDialog, NarrowsDownAndChooses) {
    StartQt();
    CScratchProject project;
    auto *target = Export<ToolTargetFn>("toolTarget");
    CString text = "pic16f628a";
    WithDialog("target", [](QDialog &dialog) {
        auto *tree = dialog.findChild<QTreeWidget *>();
        EXPECT_EQ(tree->currentItem()->text(0), "PIC16F628A") << "the present target is selected";
    });
    EXPECT_EQ(target(project.project.c_str(), nullptr, &text), 2);
    EXPECT_EQ(text, "pic16f628a");

    WithDialog("target-search", [](QDialog &dialog) {
        dialog.findChild<QLineEdit *>()->setText("4520");
        EXPECT_EQ(dialog.findChild<QTreeWidget *>()->currentItem()->text(0), "PIC18F4520");
        dialog.findChild<QLineEdit *>()->setText("no such chip");
        EXPECT_FALSE(dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->isEnabled());
        dialog.findChild<QLineEdit *>()->setText("18f45");
    });
    EXPECT_EQ(target(project.project.c_str(), nullptr, &text), 2);

    WithDialog("", [](QDialog &dialog) {
        dialog.findChild<QLineEdit *>()->setText("4520");
        Press(dialog, QDialogButtonBox::Ok);
    });
    EXPECT_EQ(target(project.project.c_str(), nullptr, &text), 1);
    EXPECT_EQ(text, "PIC18F4520");
}

TEST(OptionsDialog, StoresWhatTheUserConfirms) {
    StartQt();
    CScratchProject project;
    project.SetOption("Assembler", "IncludePath", "inc;..\\common");
    project.SetOption("Linker", "Other", "kept");
    HostPages host;
    auto *configure = Export<ToolConfigureFn>("toolConfigure");
    const auto run = [&] { return configure(project.project.c_str(), project.config.c_str(), nullptr, host.pages, 2); };

    WithDialog("options", [](QDialog &dialog) {
        auto *tabs = dialog.findChild<QTabWidget *>();
        ASSERT_EQ(tabs->count(), 4);
        EXPECT_EQ(tabs->tabText(2), "Browser");
        EXPECT_EQ(tabs->tabText(3), "Debugger");
    });
    EXPECT_EQ(run(), 0);
    EXPECT_EQ(host.first.parent(), nullptr) << "the pages stay the host's";

    WithDialog("options-refused", [](QDialog &dialog) {
        dialog.findChildren<QListWidget *>()[0]->item(0)->setText("9 lives");
        Press(dialog, QDialogButtonBox::Ok);
        EXPECT_TRUE(dialog.isVisible()) << "stays open with an entry that can't be used";
    });
    EXPECT_EQ(run(), 0);
    EXPECT_EQ(ReadProfileString("Assembler", "Defines", "none", project.config), "none") << "nothing was stored";

    WithDialog("options-linker", [](QDialog &dialog) { dialog.findChild<QTabWidget *>()->setCurrentIndex(1); });
    EXPECT_EQ(run(), 0);

    WithDialog("", [](QDialog &dialog) {
        EXPECT_EQ(dialog.findChildren<QListWidget *>()[0]->item(0)->text(), "__DEBUG=1");
        EXPECT_EQ(dialog.findChildren<QListWidget *>()[1]->item(1)->text(), "../common");
        dialog.findChildren<QListWidget *>()[0]->item(0)->setText("FAST=1");
        Press(dialog, QDialogButtonBox::Ok);
    });
    EXPECT_NE(run(), 0);
    EXPECT_EQ(ReadProfileString("Assembler", "Defines", "", project.config), "FAST=1");
    EXPECT_EQ(ReadProfileString("Assembler", "IncludePath", "", project.config), "inc;..\\common");
    EXPECT_EQ(ReadProfileString("Linker", "Other", "", project.config), "kept");
}
