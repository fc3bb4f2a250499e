// The chips that the installed gpasm knows. It is asked once; main thread only.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct Device {
    std::string processor;     // as gpasm is told: "p16f628a"
    std::string name;          // as projects and users spell it: "PIC16F628A"
    std::string family;        // gpasm's class: "PIC14"; empty when gpasm lists no properties
    uint32_t programSize = 0;  // words, or bytes when `countsBytes`
    bool countsBytes = false;
    uint32_t eepromSize = 0;  // bytes
    uint32_t lastDataAddress = 0;
};

// All chips in gpasm's order; empty while gpasm can't be run (it is then asked again at the next call).
const std::vector<Device> &Devices();

// The chip that `target` ("PIC16F628A", "pic16f628a", "16f628a", "p16f628a") names; null for none.
const Device *FindDevice(const std::string &target);
