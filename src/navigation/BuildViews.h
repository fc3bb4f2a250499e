// The views on what a build leaves: the output rows of the workspace bar, and the listing bar.
#pragma once

// The build has ended, or another project or configuration is on show.
void RefreshBuildViews();
