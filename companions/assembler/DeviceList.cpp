#include "DeviceList.h"

#include <cstdlib>
#include <sstream>
#include <unordered_map>

#include "platform/ChildProcess.h"
#include "platform/PathCalls.h"

namespace {

struct DeviceTable {
    std::vector<Device> devices;
    std::unordered_map<std::string, size_t> byName;  // lower case, each spelling
};

// What the program writes to its output; empty when it can't be run or doesn't end in time.
std::string OutputOf(const std::vector<std::string> &words) {
    CChildProcess child;
    if (!child.Start(words, "")) return {};
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    std::string output;
    char buffer[65536], ignored[4096];
    for (;;) {
        const bool ended = child.HasEnded();
        size_t size = 0, total = 0;
        while ((size = child.Read(CChildProcess::Pipe::output, buffer, sizeof buffer)) > 0) {
            output.append(buffer, size);
            total += size;
        }
        while ((size = child.Read(CChildProcess::Pipe::error, ignored, sizeof ignored)) > 0) total += size;
        if (ended && total == 0) return output;
        if (std::chrono::steady_clock::now() > limit) return {};
        if (total == 0) child.WaitForData(std::chrono::milliseconds(100));
    }
}

std::string WithoutPrefix(const std::string &processor) {
    return processor.size() > 1 && processor[0] == 'p' && processor[1] >= '0' && processor[1] <= '9'
               ? processor.substr(1)
               : processor;
}

std::string UserName(const std::string &processor) {
    const std::string bare = WithoutPrefix(processor);
    std::string name = bare == processor ? "" : "PIC";
    for (const char c : bare) name += c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    return name;
}

void AddNames(DeviceTable &table, const std::string &list) {
    std::istringstream words(list);
    for (std::string processor; words >> processor;) {
        const size_t index = table.devices.size();
        const std::string bare = WithoutPrefix(processor);
        table.byName.emplace(processor, index);
        if (bare != processor) {
            table.byName.emplace(bare, index);
            table.byName.emplace("pic" + bare, index);
        }
        table.devices.push_back({processor, UserName(processor)});
    }
}

// "0x2100 - 0x217F" as a count.
uint32_t RangeSize(const std::string &range) {
    char *end = nullptr;
    const unsigned long first = std::strtoul(range.c_str(), &end, 16);
    while (*end == ' ' || *end == '-') ++end;
    const unsigned long last = std::strtoul(end, nullptr, 16);
    return last >= first ? static_cast<uint32_t>(last - first + 1) : 0;
}

void AddProperties(DeviceTable &table, const std::string &text) {
    std::istringstream lines(text);
    Device *device = nullptr;
    for (std::string line; std::getline(lines, line);) {
        const size_t colon = line.find(" : ");
        if (colon == std::string::npos) continue;
        const std::string key = line.substr(0, std::min(line.find_last_not_of(' ', colon) + 1, colon));
        const std::string value = line.substr(colon + 3);
        if (key == "Names") {
            const auto found = table.byName.find(value.substr(0, value.find(',')));
            device = found == table.byName.end() ? nullptr : &table.devices[found->second];
        } else if (!device) {
            continue;
        } else if (key == "Class") {
            device->family = value;
        } else if (key == "Program Size") {
            device->programSize = static_cast<uint32_t>(std::strtoul(value.c_str(), nullptr, 10));
            device->countsBytes = value.ends_with("bytes");
        } else if (key == "EEPROM Range") {
            device->eepromSize = RangeSize(value);
        } else if (key == "Max. RAM Addr.") {
            device->lastDataAddress = static_cast<uint32_t>(std::strtoul(value.c_str(), nullptr, 16));
        }
    }
}

DeviceTable ReadTable() {
    DeviceTable table;
    AddNames(table, OutputOf({"gpasm", "-l"}));
    if (!table.devices.empty()) AddProperties(table, OutputOf({"gpasm", "-s"}));
    return table;
}

const DeviceTable &Table() {
    static DeviceTable table;
    if (table.devices.empty()) table = ReadTable();
    return table;
}

}  // namespace

const std::vector<Device> &Devices() {
    return Table().devices;
}

const Device *FindDevice(const std::string &target) {
    const DeviceTable &table = Table();
    const auto found = table.byName.find(LowerCase(target));
    return found == table.byName.end() ? nullptr : &table.devices[found->second];
}
