// Whom the engine calls back, as the debugger has registered it.
#pragma once

#include <algorithm>
#include <mutex>
#include <vector>

#include "debugger/EngineApi.h"

struct ExecutionCallback {
    DbgExecutionFn *fn = nullptr;
    void *user = nullptr;
};
struct ClockCallback {
    DbgClockFn *fn = nullptr;
    void *user = nullptr;
    bool operator==(const ClockCallback &) const = default;
};
struct InstCallback {
    DbgInstFn *fn = nullptr;
    void *user = nullptr;
    bool operator==(const InstCallback &) const = default;
};

// One procedure that wants to hear of the changes of one register or pin.
template <typename Fn>
struct ChangeCallback {
    int handle = 0;
    Fn *fn = nullptr;
    void *user = nullptr;
    bool operator==(const ChangeCallback &) const = default;
};

// Any thread. Calls are made without the lock, so that a procedure may register and remove within its call: one that is
// being called while it is removed ends its call.
class CCallbacks {
public:
    void SetExecution(ExecutionCallback callback) { Put(execution_, callback); }
    void SetClock(ClockCallback callback) { Put(clock_, callback); }
    void SetInst(InstCallback callback) { Put(inst_, callback); }
    ExecutionCallback Execution() const { return Take(execution_); }
    ClockCallback Clock() const { return Take(clock_); }
    InstCallback Inst() const { return Take(inst_); }
    bool RemoveClock(ClockCallback callback) { return Remove(clock_, callback); }  // false: it is another one
    bool RemoveInst(InstCallback callback) { return Remove(inst_, callback); }

    // The list in which a kind of change callback is held.
    using Registers = std::vector<ChangeCallback<DbgRegChangeFn>>;
    using Pins = std::vector<ChangeCallback<DbgPinVChangeFn>>;
    Registers RegisterCallbacks() const { return Take(registers_); }
    Pins PinCallbacks() const { return Take(pins_); }
    template <typename Fn>
    void Add(ChangeCallback<Fn> callback) {
        const std::lock_guard guard(lock_);
        ListFor(callback).push_back(callback);
    }
    // False: it isn't there. `wasLast`: nobody listens to its handle any more.
    template <typename Fn>
    bool Remove(ChangeCallback<Fn> callback, bool &wasLast) {
        const std::lock_guard guard(lock_);
        auto &list = ListFor(callback);
        const auto found = std::find(list.begin(), list.end(), callback);
        if (found == list.end()) return false;
        list.erase(found);
        wasLast =
            std::none_of(list.begin(), list.end(), [&](const auto &other) { return other.handle == callback.handle; });
        return true;
    }

private:
    template <typename Value>
    Value Take(const Value &value) const {
        const std::lock_guard guard(lock_);
        return value;
    }
    template <typename Value>
    void Put(Value &to, const Value &value) {
        const std::lock_guard guard(lock_);
        to = value;
    }
    template <typename Value>
    bool Remove(Value &from, const Value &value) {
        const std::lock_guard guard(lock_);
        if (!(from == value)) return false;
        from = {};
        return true;
    }
    Registers &ListFor(const ChangeCallback<DbgRegChangeFn> &) { return registers_; }
    Pins &ListFor(const ChangeCallback<DbgPinVChangeFn> &) { return pins_; }

    mutable std::mutex lock_;
    ExecutionCallback execution_;
    ClockCallback clock_;
    InstCallback inst_;
    Registers registers_;
    Pins pins_;
};
