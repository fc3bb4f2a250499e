// The views on what a build leaves. It is one: the output rows of the workspace bar.
#pragma once

// The build has ended, or another project or configuration is on show.
void RefreshBuildViews();
