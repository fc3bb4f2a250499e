// Drives the real program through its main jobs and leaves numbered pictures and a log: thornwell-tour DIR.
// Every stop checks what the picture is to show; the first thing that is not so ends the tour with code 1.
#include <QApplication>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "build/BuildListBox.h"
#include "build/OutputBar.h"
#include "editor/IDEDoc.h"
#include "editor/IDEView.h"
#include "framework/DesktopTheme.h"
#include "support/Program.h"

namespace {

class CTour {
public:
    explicit CTour(std::filesystem::path directory) : directory_(std::move(directory)), log_(directory_ / "tour.log") {}

    void Say(const std::string &words) {
        std::cout << words << std::endl;
        log_ << words << std::endl;
    }

    void Check(bool holds, const std::string &what) {
        if (holds) return;
        Say("FAILED: " + what);
        std::exit(1);
    }

    void Picture(CProgram &program, const std::string &name) { program.Grab(NextPicture(name)); }

    // Runs a command that opens a dialog, takes its picture and cancels it.
    void Dialog(CProgram &program, int command, const std::string &name) {
        program.AnswerDialog([file = NextPicture(name)](QWidget &dialog) {
            dialog.grab().save(QString::fromStdString(file));
            dialog.close();
        });
        program.Command(command);
        Check(program.AnswersLeft() == 0, "the dialog of " + name + " opens");
    }

    std::string NextPicture(const std::string &name) {
        char number[8];
        snprintf(number, sizeof number, "%02d", ++pictures_);
        const std::string file = number + ("-" + name) + ".png";
        Say("  picture " + file);
        return (directory_ / file).string();
    }

private:
    std::filesystem::path directory_;
    std::ofstream log_;
    int pictures_ = 0;
};

bool Contains(const std::string &text, const std::string &part) { return text.find(part) != std::string::npos; }

void StartWithNothing(CTour &tour) {
    CScratch scratch;
    CProgram program(scratch);
    tour.Say("Start for the first time");
    tour.Check(program.Start(), "the program starts");
    program.Frame().resize(1240, 800);
    tour.Picture(program, "first-start");
    tour.Dialog(program, ID_APP_ABOUT, "about");
}

void WorkOnTwoProjects(CTour &tour) {
    CScratch scratch;
    scratch.CopyExample("blink");
    scratch.CopyExample("greeting");
    scratch.CopyExample("");
    CProgram program(scratch, {scratch.Native("examples.__w")});
    tour.Say("Start on a workspace with two projects");
    tour.Check(program.Start(), "the program starts");
    program.Frame().resize(1240, 800);
    tour.Say("Build both");
    tour.Check(program.Build(ID_BUILD_ALL), "the build ends");
    tour.Say(program.BuildText());
    tour.Check(scratch.Exists("blink/Debug/blink.hex") && scratch.Exists("greeting/Debug/greeting.hex"),
               "both projects leave an image");
    tour.Picture(program, "workspace-built");

    tour.Say("Work on a dark desktop");
    SetDesktopDark(true);
    program.App().FindOrOpenDocument(scratch.Windows("greeting/serial.asm"), true);
    tour.Picture(program, "dark");
    SetDesktopDark(false);

    tour.Say("Look at the dialogs");
    tour.Dialog(program, ID_EDITOR_SETTINGS, "editor-settings");
    tour.Dialog(program, ID_PROJECT_OPTIONS, "options");
    tour.Dialog(program, ID_PROJECT_TARGET, "target");
    tour.Dialog(program, ID_PROJECT_COMPILER, "compiler");
    tour.Dialog(program, ID_BUILD_OPTIONS, "build-options");
    tour.Check(program.Unexpected().empty(), "no box came up");
}

void OpenBuildAndJump(CTour &tour) {
    CScratch scratch;
    scratch.CopyExample("blink");
    CProgram program(scratch, {scratch.Native("blink/blink.__c")});

    tour.Say("Start on the example project");
    tour.Check(program.Start(), "the program starts");
    program.Frame().resize(1240, 800);
    tour.Check(program.App().GetActiveProjectPath() == scratch.Windows("blink/blink.__c"), "the project is open");
    tour.Picture(program, "project-open");

    tour.Say("Open a source");
    tour.Check(program.App().FindOrOpenDocument(scratch.Windows("blink/main.asm"), true), "the source opens");
    tour.Picture(program, "source-open");

    tour.Say("Build it");
    tour.Check(program.Build(), "the build ends");
    tour.Say(program.BuildText());
    for (const char *file : {"blink.hex", "blink.cof", "blink.lst", "blink.map"})
        tour.Check(scratch.Exists(std::string("blink/Debug/") + file), std::string("the build leaves ") + file);
    tour.Picture(program, "built");

    tour.Say("Break a copy, build, step to the message");
    CIDEView *view = program.ActiveView();
    tour.Check(view, "a view is active");
    std::string source = scratch.Read("blink/main.asm");
    source.insert(source.find("            call    led_start"), "            movlq   0x12\n");
    scratch.Write("blink/main.asm", source);
    program.App().fileTracker.DisarmFile(scratch.Windows("blink/main.asm"));
    program.ActiveDocument()->ReloadFromDisk();
    tour.Check(program.Build(), "the failing build ends");
    tour.Say(program.BuildText());
    tour.Check(!scratch.Exists("blink/Debug/blink.hex"), "a failed build leaves no old image");
    program.Command(ID_NEXT_MESSAGE);
    program.Settle();
    tour.Check(program.ActiveFile() == "main.asm", "the message leads to its source");
    tour.Picture(program, "message");

    tour.Say("Stop a long build");
    scratch.Write("blink/prebuild.bat", "echo a long step\nsleep 60\n");
    program.Command(ID_BUILD);
    tour.Check(program.WaitFor([&] { return Contains(program.BuildText(), "a long step"); }), "the long step runs");
    tour.Picture(program, "long-build");
    program.Command(ID_BUILD_STOP);
    tour.Check(program.WaitFor([&] { return program.App().build.IsIdle(); }), "the build stops");
    tour.Picture(program, "stopped");
    tour.Check(program.Unexpected().empty(), "no box came up");
}

}  // namespace

int main(int argc, char **argv) {
    if (argc != 2) {
        std::cerr << "usage: thornwell-tour DIRECTORY\n";
        return 2;
    }
    PrepareTestProcess();
    const std::filesystem::path directory = argv[1];
    std::filesystem::create_directories(directory);
    QApplication application(argc, argv);
    CTour tour(directory);
    StartWithNothing(tour);
    OpenBuildAndJump(tour);
    WorkOnTwoProjects(tour);
    tour.Say("The tour is over.");
    return 0;
}
