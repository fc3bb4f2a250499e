#include "Connections.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <utility>

Connection *CConnections::Find(int id) {
    auto found = connections_.find(id);
    return found == connections_.end() ? nullptr : &found->second;
}

std::vector<ChipWire> CConnections::WiresOf(int pin) const {
    std::vector<ChipWire> wires;
    for (const auto &[id, connection] : connections_)
        if (connection.pin == pin && connection.drives) wires.push_back({connection.volts, connection.ohms});
    return wires;
}

void CConnections::Wire(int pin) {
    chip_.WatchPin(pin, std::any_of(connections_.begin(), connections_.end(), [pin](const auto &entry) {
                       return entry.second.pin == pin && entry.second.watched;
                   }));
    chip_.SetWires(pin, WiresOf(pin));
}

bool CConnections::Connect(int id, const std::string &pin) {
    auto number = chip_.FindPin(pin);
    if (!number) return false;
    connections_[id].pin = *number;
    Wire(*number);
    return true;
}

bool CConnections::Release(int id) {
    auto found = connections_.find(id);
    if (found == connections_.end()) return false;
    const int pin = found->second.pin;
    connections_.erase(found);
    Wire(pin);
    return true;
}

bool CConnections::SetVolts(int id, double volts) {
    Connection *connection = Find(id);
    if (!connection || !std::isfinite(volts)) return false;
    connection->volts = volts;
    connection->drives = true;
    Wire(connection->pin);
    return true;
}

bool CConnections::SetOhms(int id, double ohms) {
    Connection *connection = Find(id);
    if (!connection || !(ohms >= 0)) return false;
    connection->ohms = ohms;
    connection->drives = true;
    Wire(connection->pin);
    return true;
}

std::optional<double> CConnections::PinVolts(int id) const {
    auto found = connections_.find(id);
    if (found == connections_.end()) return std::nullopt;
    return chip_.PinVoltage(found->second.pin);
}

bool CConnections::Watch(int id, bool on) {
    Connection *connection = Find(id);
    if (!connection) return false;
    if (on && !connection->watched) connection->told = chip_.PinVoltage(connection->pin);
    connection->watched = on;
    Wire(connection->pin);
    return true;
}

std::optional<CConnections::Change> CConnections::TakeChange() {
    if (chip_.TakePinChange()) looking_ = true;
    if (!looking_) return std::nullopt;
    for (auto &[id, connection] : connections_) {
        if (!connection.watched) continue;
        const double volts = chip_.PinVoltage(connection.pin);
        constexpr double kNoise = 1e-9;  // of another order of adding up
        if (std::abs(volts - connection.told) < kNoise) continue;
        connection.told = volts;
        return Change{id, volts};
    }
    looking_ = false;
    return std::nullopt;
}

void CConnections::Replace(std::map<int, Connection> connections) {
    std::set<int> pins;
    for (const auto *list : {&connections_, &connections})
        for (const auto &[id, connection] : *list) pins.insert(connection.pin);
    connections_.swap(connections);
    for (int pin : pins) Wire(pin);
    looking_ = true;
}
