#include "Names.h"

#include <algorithm>
#include <cctype>
#include <charconv>

namespace {

constexpr size_t kNumberBytes = 8;

bool EqualsNoCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](unsigned char x, unsigned char y) {
        return std::tolower(x) == std::tolower(y);
    });
}

std::optional<uint32_t> DecimalAddress(std::string_view digits) {
    uint32_t address = 0;
    auto [end, failure] = std::from_chars(digits.data(), digits.data() + digits.size(), address);
    if (failure != std::errc() || end != digits.data() + digits.size()) return std::nullopt;
    return address;
}

}  // namespace

CNames::CNames(IChip &chip, const IProgramMap &map)
    : chip_(chip),
      map_(map),
      valueOf_([this](const std::string &name) { return Value(name); }),
      addressOf_([this](const std::string &name) { return Address(name); }),
      byteAt_([this](uint32_t address) { return ByteAt(address); }) {}

std::vector<uint32_t> CNames::Bytes(const std::string &name) const {
    if (name.size() > 1 && name[0] == '$') {
        std::string_view rest = std::string_view(name).substr(1);
        auto address = std::isdigit(static_cast<unsigned char>(rest[0])) ? DecimalAddress(rest)
                                                                         : chip_.FindRegister(std::string(rest));
        if (!address || !chip_.ReadRegister(*address)) return {};
        return {*address};
    }
    const ImageSymbol *symbol = map_.FindSymbol(name);
    if (!symbol) {  // sources have the chip's registers without "$"
        const auto address = chip_.FindRegister(name);
        return address && chip_.ReadRegister(*address) ? std::vector{*address} : std::vector<uint32_t>();
    }
    if (symbol->inProgram) return {};
    std::vector<uint32_t> bytes;
    for (uint32_t i = 0; i < std::max<uint32_t>(symbol->size, 1) && chip_.ReadRegister(symbol->address + i); i++)
        bytes.push_back(symbol->address + i);
    return bytes;
}

std::optional<int64_t> CNames::Value(const std::string &name) const {
    if (EqualsNoCase(name, "$pc")) return chip_.ProgramCounter();
    std::vector<uint32_t> bytes = Bytes(name);
    if (bytes.empty()) {
        if (EqualsNoCase(name, "$w")) return chip_.W();
        const ImageSymbol *symbol = map_.FindSymbol(name);
        if (symbol && symbol->inProgram) return symbol->address;
        return std::nullopt;
    }
    if (bytes.size() > kNumberBytes) bytes.erase(bytes.begin() + 1, bytes.end());
    uint64_t value = 0;
    for (size_t i = bytes.size(); i-- > 0;) value = value << 8 | ByteAt(bytes[i]).value_or(0);
    return static_cast<int64_t>(value);
}

std::optional<int64_t> CNames::Address(const std::string &name) const {
    if (std::vector<uint32_t> bytes = Bytes(name); !bytes.empty()) return bytes.front();
    if (const ImageSymbol *symbol = map_.FindSymbol(name)) return symbol->address;
    return std::nullopt;
}

bool CNames::Set(const std::string &name, int64_t value, std::string &error) {
    if (EqualsNoCase(name, "$pc")) {
        const bool good = value >= 0 && chip_.SetProgramCounter(static_cast<uint32_t>(value));
        if (!good) error = std::to_string(value) + " is no address of an instruction.";
        return good;
    }
    std::vector<uint32_t> bytes = Bytes(name);
    if (bytes.empty()) {
        if (EqualsNoCase(name, "$w")) {
            chip_.SetW(static_cast<uint8_t>(value));
            return true;
        }
        error = WhyNoBytes(name);
        return false;
    }
    if (bytes.size() > kNumberBytes) bytes.erase(bytes.begin() + 1, bytes.end());
    for (uint32_t address : bytes) {
        if (!chip_.WriteRegister(address, static_cast<uint8_t>(value))) {
            error = "The chip takes no value for \"" + name + "\".";
            return false;
        }
        value >>= 8;
    }
    return true;
}

std::string CNames::WhyNoBytes(const std::string &name) const {
    const ImageSymbol *symbol = map_.FindSymbol(name);
    if (symbol && symbol->inProgram) return '"' + name + "\" lies in program memory.";
    if (symbol) return "The chip has no memory where \"" + name + "\" lies.";
    return "There is no \"" + name + "\" in this program or chip.";
}

std::optional<int64_t> CNames::Evaluate(const CExpression &expression, std::string &error) const {
    return expression.Evaluate(valueOf_, addressOf_, byteAt_, error);
}

std::string CNames::UnknownName(const CExpression &expression) const {
    std::string unknown, error;
    auto noting = [&](const NameLookup &lookup) -> NameLookup {
        return [&](const std::string &name) {
            auto value = lookup(name);
            if (!value) unknown = name;
            return value;
        };
    };
    expression.Evaluate(noting(valueOf_), noting(addressOf_), byteAt_, error);
    return unknown;
}
