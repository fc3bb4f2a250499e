// Commands: integers that travel from object to object until one handles them, for execution and for their state alike.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

// The state of one command as its handler tells it. A command that nobody handles is off.
class CCmdUI {
public:
    explicit CCmdUI(int command) : id(command) {}

    void Enable(bool on = true) { enabled = on; }
    void SetCheck(bool on = true) { checked = on; }
    void SetText(std::string newText) { text = std::move(newText); }

    const int id;
    bool enabled = true;
    std::optional<bool> checked;      // empty: the command has no check mark
    std::optional<std::string> text;  // empty: the menu's own text stays
};

// An object that commands reach. It keeps a map from command to the functions that run it and tell its state; a derived
// class fills the map in its constructor and widens the route by overriding OnCmdMsg. Main thread.
class CCmdTarget {
public:
    using Run = std::function<void()>;
    using RunId = std::function<void(int)>;
    using Update = std::function<void(CCmdUI &)>;

    CCmdTarget() = default;
    virtual ~CCmdTarget() = default;
    CCmdTarget(const CCmdTarget &) = delete;
    CCmdTarget &operator=(const CCmdTarget &) = delete;

    // Offers command `id`: to run it when `ui` is null, else to tell its state in `ui`. True when it was handled; the
    // caller then looks no further. A handler without an update function leaves the command on.
    virtual bool OnCmdMsg(int id, CCmdUI *ui);

protected:
    void OnCommand(int id, Run run, Update update = nullptr);
    void OnCommandRange(int first, int last, RunId run, Update update = nullptr);

private:
    struct Handler {
        int last;
        RunId run;
        Update update;
    };
    std::map<int, Handler> handlers_;  // by the first id of its range; ranges don't overlap
};

// Runs `id` through `target` if its state allows it. False when nobody handled it or it is off.
bool SendCommand(CCmdTarget &target, int id);

// The state of `id` as `target` tells it; off when nobody handled it.
CCmdUI QueryCommand(CCmdTarget &target, int id);
