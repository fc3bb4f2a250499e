#include "app/ClockRate.h"

#include <algorithm>
#include <cctype>

#include "platform/PathCalls.h"
#include "project/ProjectSettings.h"

namespace {

constexpr long kKilohertz = 1000;
constexpr long kMegahertz = 1000000;

struct Unit {
    std::string_view name;
    long hertz;
};

constexpr Unit kUnits[] = {{"", 1},          {"Hz", 1},          {"k", kKilohertz},
                           {"kHz", kKilohertz}, {"M", kMegahertz}, {"MHz", kMegahertz}};

std::string_view Trimmed(std::string_view text) {
    const size_t first = text.find_first_not_of(" \t");
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// `rate` over `unit` with all decimals that it has.
std::string Decimal(long rate, long unit) {
    std::string text = std::to_string(rate / unit);
    long rest = rate % unit;
    if (rest != 0) text += '.';
    for (long digit = unit / 10; rest != 0; rest %= digit, digit /= 10) text += static_cast<char>('0' + rest / digit);
    return text;
}

}  // namespace

int ProjectClockRate() {
    return GetProjectInt("Settings", "ClockRate", kDefaultClockRate);
}

std::string ClockRateText(long rate) {
    const std::string whole = std::to_string(rate / kMegahertz);
    if (rate % kMegahertz == 0) return whole + " MHz";
    return whole + "." + std::to_string(rate % kMegahertz / 10000) + " MHz";
}

std::string ExactClockRate(long rate) {
    if (rate >= kMegahertz) return Decimal(rate, kMegahertz) + " MHz";
    if (rate >= kKilohertz) return Decimal(rate, kKilohertz) + " kHz";
    return std::to_string(rate) + " Hz";
}

std::optional<long> ParseClockRate(std::string_view text) {
    text = Trimmed(text);
    const auto numberEnd =
        std::ranges::find_if_not(text, [](char c) { return IsDigit(c) || c == '.' || c == ','; });
    const std::string_view number(text.begin(), numberEnd);
    const std::string unitName(Trimmed(std::string_view(numberEnd, text.end())));
    const auto unit =
        std::ranges::find_if(kUnits, [&](const Unit &each) { return EqualNoCase(std::string(each.name), unitName); });
    if (unit == std::end(kUnits) || std::ranges::none_of(number, IsDigit)) return {};

    long rate = 0;
    long digitValue = unit->hertz;  // of the next decimal, once the point is passed
    bool decimals = false;
    for (char c : number) {
        if (!IsDigit(c)) {
            if (decimals) return {};
            decimals = true;
        } else if (!decimals) {
            rate = rate * 10 + (c - '0') * unit->hertz;
            if (rate > kHighestClockRate) return {};
        } else {
            digitValue /= 10;
            if (digitValue == 0 && c != '0') return {};
            rate += (c - '0') * digitValue;
        }
    }
    return rate <= kHighestClockRate ? std::optional(rate) : std::nullopt;
}
