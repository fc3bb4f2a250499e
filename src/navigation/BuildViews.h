// The views on what a build leaves: listing, call tree, function information.
#pragma once

// Refreshes those that are on show. With `reload` they read their files again even when these seem unchanged.
void RefreshBuildViews(bool reload);
