// Drives the real program through its main jobs and leaves numbered pictures and a log: thornwell-tour DIR.
// Every stop checks what the picture is to show; the first thing that is not so ends the tour with code 1.
#include <QApplication>
#include <filesystem>
#include <iostream>

#include "Stops.h"
#include "Tour.h"

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
    for (const auto stop : {StartWithNothing, OpenBuildAndJump, WorkOnTwoProjects, EditSources, FindOnesWay,
                            DebugTheExamples, LookIntoMemory, LookIntoLargeMemory, ChooseColours, ArrangeTheFrame,
                            LookIntoTheMenus})
        stop(tour);
    tour.Say("The tour is over.");
    return 0;
}
