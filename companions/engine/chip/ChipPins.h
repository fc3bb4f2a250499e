// The pins of a chip and what hangs on them. Known to the chip's own sources only.
#pragma once

#include <gpsim_classes.h>

#include <pic-processor.h>
#include <stimuli.h>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "chip/SimChip.h"

class CChipPins;

// All that hangs on one pin, as one voltage behind one resistance on the node of the pin.
class COutside : public stimulus {
public:
    // `board`: wires that are always there. `pins` must outlive this.
    COutside(IOPIN &pin, std::vector<ChipWire> board, CChipPins &pins);

    void SetWires(const std::vector<ChipWire> &wires);
    double Voltage() const { return snode->get_nodeVoltage(); }

    void getThevenin(double &volts, double &ohms, double &farads) override;
    double get_Vth() override { return volts_; }
    double get_Zth() override { return ohms_; }
    void set_nodeVoltage(double volts) override;  // called by the node at whatever happens to it

    bool watched = false;

private:
    const std::vector<ChipWire> board_;
    CChipPins &pins_;
    double volts_ = 0, ohms_ = 0;
    double last_ = 0;
};

class CChipPins {
public:
    static constexpr unsigned int kAlarm = 0x100;

    // `alarm`: gets kAlarm with each change, for a run that has other things to look for there.
    CChipPins(pic_processor &cpu, unsigned int &alarm) : cpu_(cpu), alarm_(alarm) {}

    std::optional<int> Find(const std::string &name) const;
    COutside &At(int pin);  // a pin that Find has given

    bool HoldReset() const;  // what hangs on the reset pin does

    void HasChanged() {
        changed = true;
        alarm_ |= kAlarm;
    }
    bool changed = false;  // a watched pin has another voltage since this was set to false

private:
    pic_processor &cpu_;
    unsigned int &alarm_;
    std::map<int, std::unique_ptr<COutside>> outsides_;  // by the pin's number
};
