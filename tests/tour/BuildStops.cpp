// Projects: opened, built, stopped, and the way from a message to its line.
#include "Stops.h"
#include "Tour.h"
#include "editor/IDEDoc.h"
#include "editor/IDEView.h"
#include "framework/DesktopTheme.h"

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
