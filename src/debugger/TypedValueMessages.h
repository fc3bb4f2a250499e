// What the build list says about values typed into the bars of a debug run.
#pragma once

void TellNoNumber(int format);  // the text is no number in a NumberFormat
