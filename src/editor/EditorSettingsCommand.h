// The command by which the user sets the look of source text.
#pragma once

// Shows the settings sheet; on OK stores what was set there and brings all open documents up to it. Main thread.
void RunEditorSettings();
