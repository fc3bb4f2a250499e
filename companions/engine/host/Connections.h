// What the debugger has connected to the chip's pins.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "chip/SimChip.h"

// One wire to a pin.
struct Connection {
    int pin = 0;          // the chip's number
    bool drives = false;  // a voltage or a resistance has been set; before, it carries nothing
    bool watched = false;
    double volts = 0, ohms = 1000;  // as long as the other one of them hasn't been set
    double told = 0;                // the pin's voltage that a watcher knows

    bool operator==(const Connection &) const = default;
};

class CConnections {
public:
    explicit CConnections(CSimChip &chip) : chip_(chip) {}  // which must outlive this

    // A new one under this id; false when the chip has no such pin.
    bool Connect(int id, const std::string &pin);
    bool Release(int id);
    // False, with nothing changed: no such connection, or a number that there's no reckoning with.
    bool SetVolts(int id, double volts);
    bool SetOhms(int id, double ohms);  // 0 to infinity
    std::optional<double> PinVolts(int id) const;
    bool Watch(int id, bool on);  // the voltage of its pin, from now on

    struct Change {
        int id = 0;
        double volts = 0;
    };
    // One watched pin whose voltage isn't the told one; it counts as told. Quick when there is none.
    std::optional<Change> TakeChange();

    // All of them, for an earlier state of the same chip, which gets those and no others. A level that stays the same
    // makes no edge on the way.
    const std::map<int, Connection> &All() const { return connections_; }
    void Replace(std::map<int, Connection> connections);

private:
    Connection *Find(int id);
    std::vector<ChipWire> WiresOf(int pin) const;
    void Wire(int pin);  // lets the chip know what hangs there, and whether it is watched

    CSimChip &chip_;
    std::map<int, Connection> connections_;
    bool looking_ = false;  // there may be an untold change
};
