// What a new user sees first.
#include "Stops.h"
#include "Tour.h"

void StartWithNothing(CTour &tour) {
    CScratch scratch;
    CProgram program(scratch);
    tour.Say("Start for the first time");
    tour.Check(program.Start(), "the program starts");
    program.Frame().resize(1240, 800);
    tour.Picture(program, "first-start");
    tour.Dialog(program, ID_APP_ABOUT, "about");
}
