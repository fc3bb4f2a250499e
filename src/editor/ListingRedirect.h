// Commands that mean the listing while the keyboard is in the listing bar, whichever source window is the active one.
#pragma once

class CCmdUI;

// Offers a command that has reached the view of a source: posts it to the listing, or tells its state there in `ui`.
// While another tab of the bar is in front, that view gets it. False when the view is to handle it itself. Main thread.
bool RedirectToListing(int id, CCmdUI *ui);
