#include "bench/peer/Candidate.h"

#include <X11/keysym.h>

#include <cstdlib>
#include <thread>
#include <utility>

using namespace std::chrono_literals;

namespace {

constexpr auto kLimit = 120s;     // for anything to happen
constexpr auto kPollPause = 1ms;  // between two looks at the screen
constexpr auto kRest = 1s;        // without work: the program has come to rest

constexpr int kSmallestWindow = 300 * 200;  // pixels; a tool kit's own helper windows are smaller
constexpr Area kPlace = {0, 0, 1200, 800};
constexpr double kSomeInk = 0.005, kTextInk = 0.05, kNoInk = 0.02;  // as Picture::Ink counts
constexpr double kMenuOverWindow = 0.2;                             // of the menu's pixels differ from what was there

}  // namespace

CCandidate::CCandidate(const CVirtualDisplay &display, std::string command)
    : display_(display), command_(std::move(command)) {
    std::filesystem::permissions(home_.Path(), std::filesystem::perms::owner_all);
    for (const char *name : {"config", "cache", "data", "run"}) std::filesystem::create_directory(home_.Path() / name);
}

// The same for both, and nothing of the environment that the benchmark was started in.
std::vector<std::string> CCandidate::Environment() const {
    return {"PATH=" + std::string(std::getenv("PATH")),
            "LC_ALL=C.UTF-8",
            "DISPLAY=" + display_.Name(),
            "DBUS_SESSION_BUS_ADDRESS=disabled:",
            "HOME=" + Home(),
            "XDG_CONFIG_HOME=" + Home("config"),
            "XDG_CACHE_HOME=" + Home("cache"),
            "XDG_DATA_HOME=" + Home("data"),
            "XDG_RUNTIME_DIR=" + Home("run")};
}

void CCandidate::Await(const std::string &what, const std::function<bool()> &holds) const {
    const auto end = std::chrono::steady_clock::now() + kLimit;
    while (!holds()) {
        Require(std::chrono::steady_clock::now() < end, command_ + ": " + what + " doesn't come");
        std::this_thread::sleep_for(kPollPause);
    }
}

void CCandidate::WarmUp() {
    Start();
    AwaitWindow();
    display_.MoveTo(Window(), kPlace);
    MemoryAtRest();
    display_.AskToClose(Window());
    Require(process_.WaitForEnd(60s), command_ + " doesn't close");
}

void CCandidate::Start(const std::vector<std::string> &arguments) {
    std::vector<std::string> words = {command_};
    words.insert(words.end(), arguments.begin(), arguments.end());
    const std::vector<std::string> environment = Environment();
    start_ = std::chrono::steady_clock::now();
    process_.Start(words, environment);
}

CVirtualDisplay::Window CCandidate::Window() const {
    const auto window = display_.MainWindow();
    Require(window.has_value(), command_ + " has lost its window");
    return *window;
}

Milliseconds CCandidate::AwaitWindow() {
    Await("the window", [&] {
        const auto window = display_.MainWindow();
        return window && window->area.Size() >= kSmallestWindow;
    });
    display_.Focus(Window());
    // Bands across the whole window instead of all of it: looking takes time from the program.
    Await("the painted window", [&] {
        const Area area = Window().area;
        for (const auto &[top, bottom] : {std::pair{0.0, 0.06}, {0.49, 0.51}, {0.97, 1.0}})
            if (display_.Grab(area.Part(0, top, 1, bottom)).Share(CVirtualDisplay::kUnpainted) > 0) return false;
        return display_.Grab(area.Part(0, 0, 1, 0.06)).Ink() > kSomeInk;
    });
    return SinceStart();
}

Milliseconds CCandidate::AwaitMenu() {
    const Picture before = display_.Grab(Window().area);
    Press(XK_f, XK_Alt_L);
    Await("the File menu", [&] {
        const auto popup = display_.Popup();
        if (!popup) return false;
        const Area inside = popup->area.Part(0.02, 0.02, 0.98, 0.98);  // without frame and shadow
        const Picture menu = display_.Grab(inside);
        return menu.Ink() > kSomeInk && menu.Difference(before) > kMenuOverWindow;
    });
    const Milliseconds time = SinceStart();
    Press(XK_Escape);
    Await("the end of the menu", [&] { return !display_.Popup(); });
    return time;
}

Milliseconds CCandidate::AwaitText(bool there) {
    Await(there ? "the text" : "the next page", [&] {
        const double ink = display_.Grab(Window().area.Part(0.45, 0.25, 0.6, 0.4)).Ink();
        return there ? ink > kTextInk : ink < kNoInk;
    });
    return SinceStart();
}

CProcess::Memory CCandidate::MemoryAtRest() {
    long time = process_.ReadCpuTime();
    auto since = std::chrono::steady_clock::now();
    // A blinking caret costs a tick now and then.
    Await("the end of its work", [&] {
        const auto now = std::chrono::steady_clock::now();
        if (const long newTime = process_.ReadCpuTime(); newTime > time + 2) {
            time = newTime;
            since = now;
        }
        return now - since >= kRest;
    });
    return process_.ReadMemory();
}

void CCandidate::Kill() {
    process_.Kill();
    Await("the end of its windows", [&] { return !display_.MainWindow() && !display_.Popup(); });
}
