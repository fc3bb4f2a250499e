#include "editor/MacroPlayer.h"

#include <algorithm>

#include "editor/SciWindow.h"

namespace {

struct MessageRange {
    int first, last;
};

// What the component can record: editing, the caret's moves, scrolling.
constexpr MessageRange kRecorded[] = {
    {2001, 2001}, {2003, 2004}, {2013, 2013}, {2024, 2025}, {2170, 2170}, {2177, 2180}, {2282, 2282}, {2300, 2349},
    {2366, 2368}, {2390, 2393}, {2395, 2396}, {2404, 2404}, {2413, 2416}, {2422, 2422}, {2426, 2442}, {2450, 2455},
    {2469, 2469}, {2518, 2519}, {2619, 2621}, {2628, 2629}, {2652, 2653},
};

bool CanBeRecorded(int message) {
    return std::ranges::any_of(kRecorded, [message](const MessageRange &range) {
        return message >= range.first && message <= range.last;
    });
}

// The number in front of a text that is that many bytes long must not promise more than there is.
int FirstArgument(const CMacroCommand &step) {
    const bool countsBytes = step.message == SCI_ADDTEXT || step.message == SCI_APPENDTEXT;
    return countsBytes ? std::clamp(step.wParam, 0, static_cast<int>(step.lParam.size())) : step.wParam;
}

}  // namespace

void PlayMacro(const CSciWindow &window, std::span<const CMacroCommand> steps) {
    for (const CMacroCommand &step : steps)
        if (step.type == 0 && CanBeRecorded(step.message))
            window.SendText(static_cast<unsigned>(step.message), static_cast<uintptr_t>(FirstArgument(step)),
                            step.lParam.c_str());
}
