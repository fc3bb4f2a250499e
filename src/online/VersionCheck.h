// The check for a new version.
#pragma once

// Looks for a new version of the program without a word when there is none. The program knows no place to ask, so there
// is nothing to do.
void RunSilentVersionCheck();
