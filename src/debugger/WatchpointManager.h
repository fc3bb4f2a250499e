// The watchpoints of a debug run: registers and bytes of data memory; the target stops behind each write to one.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct CWatchpoint {
    std::string name;  // "$NAME" a register, "$%d" a byte of data memory by its address
    int32_t id = -1;   // the engine's; -1: the engine doesn't know of it
};

// Lives with the application; filled from the project at the start of a run, written back and emptied at its end. Names
// compare without regard to case. Main thread.
class CWatchpointManager {
public:
    // True when it stands in the list afterwards. A new one is asked of the engine during a run, else only on
    // `needEngine`; what the engine refuses isn't added.
    bool Add(const std::string &name, bool needEngine);

    // A register has two names, its own and its address; both are found and removed under either, but `exactOnly`.
    int Find(const std::string &name, bool exactOnly = false) const;  // the engine's id; -1 none
    bool Remove(const std::string &name, bool exactOnly = false);     // false: not there, or the engine refuses
    void DeleteAll();

    const std::vector<CWatchpoint> &List() const { return list_; }

    // The user's commands of the bars: these set the marks of all bars too, and tell a refusal in the build list.
    void Toggle(const std::string &name);
    void RemoveAll();

    // A run of the active project begins and ends; both within it.
    void Load();   // sets what the project names, with the marks; what the engine refuses is passed over
    void Store();  // writes the list to the project, then empties it

private:
    std::vector<CWatchpoint>::iterator At(const std::string &name);
    bool IsShared(const CWatchpoint &watchpoint) const;
    void Mark(const std::string &name, bool on) const;

    std::vector<CWatchpoint> list_;  // in the order of setting
};

// What a bar needs to know of a watchpoint's name to find its row or cell; both ask the engine.
std::string WatchedRegister(const std::string &name);  // without "$"; empty when it is no register
int WatchedAddress(const std::string &name);           // of its (first) byte; -1 when it isn't known
