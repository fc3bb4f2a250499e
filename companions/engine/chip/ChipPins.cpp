#include <packages.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <utility>

#include "chip/ChipLibrary.h"

namespace {

// Of a wire that carries nothing: out of reach of the resistance of any input.
constexpr double kOpenOhms = 1e30;
constexpr double kLeastOhms = 1e-3;       // two wires without resistance meet somewhere between
constexpr double kResetPullUpOhms = 1e5;  // a reset pin with nothing on it doesn't hold the chip in reset

// Opens what the library keeps to itself: the pin that the reset pin stands in the place of.
struct ResetPin : pic_processor {
    static IOPIN *Of(const pic_processor &cpu) { return cpu.*(&ResetPin::m_MCLR); }
    static IOPIN *Replaced(const pic_processor &cpu) { return cpu.*(&ResetPin::m_MCLR_Save); }
};

// One form for all ways of writing a pin: "portb0" and "RB0" are "RB0", "gpio0" and "GP0" are "GP0".
std::string PinKey(std::string name) {
    std::transform(name.begin(), name.end(), name.begin(), [](unsigned char c) { return std::toupper(c); });
    if (name.size() > 5 && name.starts_with("PORT")) return "R" + name.substr(4);
    if (name.size() > 4 && name.starts_with("GPIO")) return "GP" + name.substr(4);
    return name == "TOCKI" ? "T0CKI" : name;  // the library's way to write it
}

}  // namespace

COutside::COutside(IOPIN &pin, std::vector<ChipWire> board, CChipPins &pins)
    : stimulus(nullptr), board_(std::move(board)), pins_(pins) {
    SetWires({});
    if (!pin.snode) (new Stimulus_Node)->attach_stimulus(&pin);
    pin.snode->attach_stimulus(this);
    last_ = Voltage();
}

void COutside::SetWires(const std::vector<ChipWire> &wires) {
    double amperes = 0, siemens = 1 / kOpenOhms;
    for (const auto *list : {&board_, &wires})
        for (const ChipWire &wire : *list) {
            const double part = 1 / std::clamp(wire.ohms, kLeastOhms, kOpenOhms);
            amperes += wire.volts * part;
            siemens += part;
        }
    volts_ = amperes / siemens;
    ohms_ = 1 / siemens;
    updateNode();
}

void COutside::getThevenin(double &volts, double &ohms, double &farads) {
    volts = volts_;
    ohms = ohms_;
    farads = 0;
}

void COutside::set_nodeVoltage(double volts) {
    constexpr double kNoise = 1e-9;
    if (std::abs(volts - last_) < kNoise) return;
    last_ = volts;
    if (watched) pins_.HasChanged();
}

std::optional<int> CChipPins::Find(const std::string &name) const {
    const std::string key = PinKey(name);
    if (key.empty()) return std::nullopt;
    Package &package = *cpu_.package;
    std::optional<int> byFunction;
    for (int number = 1; number <= package.get_pin_count(); ++number) {
        const IOPIN *pin = package.get_pin(static_cast<unsigned int>(number));
        if (!pin) continue;
        if (PinKey(pin->name()) == key) return number;
        const IOPIN *replaced = pin == ResetPin::Of(cpu_) ? ResetPin::Replaced(cpu_) : nullptr;
        if (replaced && PinKey(replaced->name()) == key) return number;
        if (PinKey(pin->GUIname()) == key) byFunction = number;  // "an0", of what it is now
    }
    return byFunction;
}

COutside &CChipPins::At(int pin) {
    std::unique_ptr<COutside> &outside = outsides_[pin];
    if (!outside) {
        IOPIN &there = *cpu_.package->get_pin(static_cast<unsigned int>(pin));
        std::vector<ChipWire> board;
        if (&there == ResetPin::Of(cpu_)) board.push_back({cpu_.get_Vdd(), kResetPullUpOhms});
        outside = std::make_unique<COutside>(there, std::move(board), *this);
    }
    return *outside;
}

bool CChipPins::HoldReset() const {
    IOPIN *pin = ResetPin::Of(cpu_);
    return pin && pin->snode && !pin->getDrivenState();
}

void CSimChip::SetClockRate(double hertz) {
    impl_->clockRate = hertz;
    impl_->cpu.set_frequency(hertz);
}

std::optional<int> CSimChip::FindPin(const std::string &name) const {
    return impl_->pins.Find(name);
}

void CSimChip::SetWires(int pin, const std::vector<ChipWire> &wires) {
    impl_->FromOutside([&] { impl_->pins.At(pin).SetWires(wires); });
}

double CSimChip::PinVoltage(int pin) const {
    return impl_->pins.At(pin).Voltage();
}

void CSimChip::WatchPin(int pin, bool on) {
    impl_->pins.At(pin).watched = on;
}

bool CSimChip::TakePinChange() {
    return std::exchange(impl_->pins.changed, false);
}
