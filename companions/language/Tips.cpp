#include <iterator>

#include "Tables.h"
#include "app/StringIds.h"

namespace language {
namespace {

// Each tells one thing that a user can do at once. Keys are those of Accelerators.cpp.
constexpr const char *kTips[] = {
    "F4 takes you to the next error or warning of the build and shows its source line. A double click on a line of the "
    "build list does the same for that line.",
    "Ctrl+F7 rebuilds the project from scratch. Holding Ctrl while you click the Build button does it, too.",
    "Folding, line numbers and indentation guides are waiting in Edit > Editor Settings. A sample shows each change "
    "before you decide.",
    "A click on a fold mark closes or opens that block. With Shift it opens everything inside the block as well, with "
    "Ctrl it closes or opens all of it, and with Ctrl and Shift it folds the whole file.",
    "Ctrl+F2 sets a bookmark on a line, F2 and Shift+F2 go from one to the next.",
    "Lost your place while looking around? Ctrl+Shift+Backspace takes you back to where you last changed the text.",
    "Alt+O goes from a C source to its header of the same name, and back.",
    "Files dropped onto the window from a file manager are opened. A project or workspace among them is opened as such.",
    "Every bar can be dragged to another edge, put on top of another bar as a tab, or pulled out into a window of its "
    "own. View > Reset Bar Layout brings all of them back to where they were at first.",
    "Alt+0 shows and hides the workspace bar, Alt+2 the output bar: more room for the source in no time.",
    "The box in the build tool bar chooses between Debug and Release. Each configuration keeps its own options and its "
    "own output folder.",
    "Ctrl+Pause stops a running build, together with everything that it has started.",
    "Editor Settings holds four colour schemes. Pick the one that comes nearest to your taste and change what you like: "
    "your own colours are what is kept.",
    "When the desktop turns dark, so does this window. The colours of the source text stay those that you have chosen.",
    "Ctrl+] jumps to the brace that matches the one at the caret, and Ctrl+G goes to a line by its number.",
    "Hold Alt while you drag the mouse, or Alt and Shift with the arrow keys, to select a rectangle: handy for columns "
    "of register names and values.",
    "Scripts named prebuild.bat and postbuild.bat in the project's folder run before and after each of its builds.",
    "A file that another program changes while it is open here is noticed at once. You are asked before anything of "
    "yours is replaced.",
    "In a workspace with several projects, a double click with Ctrl on a project makes it the active one: the one that "
    "Build and Debug work on.",
    "The document tabs can stand on top, at the bottom, or give their room away: see the View menu. Ctrl+Tab goes from "
    "one document to the next in any case.",
    "Debug > Clock Rate understands 4 MHz as well as 4000000. The rate in use shows in the status bar.",
    "Name a project on the command line, as in thornwell-ide blink.__c, to start right in it. Without a name the last "
    "one is opened again.",
};
static_assert(std::size(kTips) <= kMostTips);

}  // namespace

const char *FindTip(int index) {
    return index >= 0 && index < static_cast<int>(std::size(kTips)) ? kTips[index] : nullptr;
}

}  // namespace language
