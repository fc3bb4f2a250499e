#include "RegisterInfo.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <map>
#include <span>

#include "RegisterGroups.h"
#include "platform/NativeFile.h"
#include "platform/PathCalls.h"

namespace {

// Registers that share an address with the one that is reached there after a reset.
constexpr std::string_view kOverlaid[] = {"ODCON#", "PADCFG#", "MEMCON",  "REFOCON",
                                          "ANCON#", "CVRCON*", "SSP*MSK", "MSK"};

// Names that other names have replaced.
constexpr std::string_view kOutdated[] = {"DDR?", "GPIO", "TRISIO"};

std::string HeaderDirectory() {
    const char *path = std::getenv("GPUTILS_HEADER_PATH");
    return path && *path ? path : "/usr/share/gputils/header";
}

std::string Capitals(std::string_view name) {
    std::string text(name);
    for (char &c : text) c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    return text;
}

bool IsOneOf(std::span<const std::string_view> forms, const std::string &name) {
    return std::any_of(forms.begin(), forms.end(), [&name](std::string_view form) { return IsOfForm(name, form); });
}

// Puts the name by which the register is shown first. Of several that are equally good it is the header's first.
void ChooseName(std::vector<std::string> &names) {
    const auto has = [&names](const std::string &name) {
        return std::find(names.begin(), names.end(), name) != names.end();
    };
    std::array<std::vector<std::string>, 3> byWorth;
    for (const std::string &name : names) {
        const bool isPair = has(name + 'L') || has(name + 'H') || has(name + "LL");
        byWorth[isPair ? 2 : IsOneOf(kOverlaid, name) || IsOneOf(kOutdated, name) ? 1 : 0].push_back(name);
    }
    names.clear();
    for (const auto &equal : byWorth) names.insert(names.end(), equal.begin(), equal.end());
}

// Each bit under the first name that it has in the section of the first of `names`, else of the next. The header names
// a field as a whole like its lowest bit ("CHS" and "CHS0"): the bit's own name is taken.
std::vector<NamedBit> ChooseBits(const ChipHeader &header, const std::vector<std::string> &names) {
    std::array<std::string, 8> chosen;
    for (const std::string &name : names) {
        if (&name != &names.front() && IsOneOf(kOverlaid, name)) continue;
        auto section = header.bits.find(name);
        if (section == header.bits.end() && name == "OPTION_REG") section = header.bits.find("OPTION");
        if (section == header.bits.end()) continue;
        std::array<std::string, 8> found;
        for (const HeaderBit &bit : section->second) {
            std::string &present = found[static_cast<size_t>(bit.bit)];
            if (present.empty() || bit.name == present + '0') present = bit.name;
        }
        for (size_t bit = 0; bit < chosen.size(); ++bit) {
            if (chosen[bit].empty()) chosen[bit] = found[bit];
        }
    }
    std::vector<NamedBit> bits;
    for (size_t bit = 0; bit < chosen.size(); ++bit) {
        if (!chosen[bit].empty()) bits.push_back({static_cast<int>(bit), chosen[bit]});
    }
    return bits;
}

// By name, with the numbers in it as numbers: "UEP9" before "UEP10".
bool IsBefore(std::string_view a, std::string_view b) {
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    for (;;) {
        if (a.empty() || b.empty()) return a.size() < b.size();
        if (isDigit(a.front()) && isDigit(b.front())) {
            const size_t sizeA = std::min(a.find_first_not_of("0123456789"), a.size());
            const size_t sizeB = std::min(b.find_first_not_of("0123456789"), b.size());
            if (sizeA != sizeB) return sizeA < sizeB;
        }
        if (a.front() != b.front()) return a.front() < b.front();
        a.remove_prefix(1);
        b.remove_prefix(1);
    }
}

}  // namespace

std::unique_ptr<CRegisterInfo> CRegisterInfo::Load(const std::string &type, std::string &error) {
    std::string chip = LowerCase(type);
    if (chip.starts_with("pic")) chip.erase(0, 3);
    if (!chip.empty() && chip[0] >= '0' && chip[0] <= '9') chip.insert(0, "p");
    const bool isName = !chip.empty() && chip.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789") == chip.npos;
    const auto text = isName ? ReadNativeFile(HeaderDirectory() + "/" + chip + ".inc") : std::nullopt;
    auto info = text ? std::make_unique<CRegisterInfo>(ReadChipHeader(*text)) : nullptr;
    if (info && !info->registers_.empty()) return info;
    error = "The names of the registers are not known: there is no header " + (isName ? chip : "") + ".inc of " + type +
            " in " + HeaderDirectory();
    return nullptr;
}

CRegisterInfo::CRegisterInfo(const ChipHeader &header) : noMemory_(header.noMemory), lastAddress_(header.lastAddress) {
    std::map<uint32_t, std::vector<std::string>> names;
    for (const auto &[name, address] : header.registers) {
        const size_t known = byName_.size();
        byName_.emplace(Capitals(name), 0);
        if (byName_.size() != known) names[address].push_back(name);
    }
    for (auto &[address, ofRegister] : names) {
        ChooseName(ofRegister);
        for (const std::string &name : ofRegister) byName_[Capitals(name)] = registers_.size();
        shown_.push_back(registers_.size());
        registers_.push_back({address,
                              ofRegister.front(),
                              {ofRegister.begin() + 1, ofRegister.end()},
                              ChooseBits(header, ofRegister),
                              RegisterGroupOf(Capitals(ofRegister.front()))});
    }
    std::sort(shown_.begin(), shown_.end(), [this](size_t a, size_t b) {
        const ChipRegister &first = registers_[a], &second = registers_[b];
        return first.group != second.group ? first.group < second.group : IsBefore(first.name, second.name);
    });
    family_ = FindFamily();
}

CRegisterInfo::Family CRegisterInfo::FindFamily() const {
    const auto isAt = [this](const char *name, uint32_t address) {
        const ChipRegister *found = Find(name);
        return found && found->address == address;
    };
    if (!isAt("STATUS", 3)) return Family::other;
    if (isAt("BSR", 8) && isAt("INDF1", 1)) return Family::enhanced;
    return isAt("PCLATH", 10) ? Family::midRange : Family::baseline;
}

const ChipRegister *CRegisterInfo::Find(std::string_view name) const {
    const auto found = byName_.find(Capitals(name));
    return found == byName_.end() ? nullptr : &registers_[found->second];
}

const ChipRegister *CRegisterInfo::Exactly(uint32_t address) const {
    const auto found =
        std::lower_bound(registers_.begin(), registers_.end(), address,
                         [](const ChipRegister &entry, uint32_t wanted) { return entry.address < wanted; });
    return found != registers_.end() && found->address == address ? &*found : nullptr;
}

const ChipRegister *CRegisterInfo::At(uint32_t address) const {
    if (const ChipRegister *found = Exactly(address)) return found;
    if (family_ == Family::other || (lastAddress_ != 0 && address > lastAddress_)) return nullptr;
    for (const auto &[from, to] : noMemory_) {
        if (address >= from && address <= to) return nullptr;
    }
    if (family_ == Family::baseline) return (address & 0x1F) < 0x10 ? Exactly(address & 0x1F) : nullptr;

    const uint32_t offset = address & 0x7F;
    if (family_ == Family::enhanced) return offset < 12 ? Exactly(offset) : nullptr;
    // TMR0, PORTB, OPTION_REG and TRISB are there in every second bank.
    if (offset == 1 || offset == 6) return Exactly(address & 0xFF);
    return offset == 0 || (offset >= 2 && offset <= 4) || offset == 10 || offset == 11 ? Exactly(offset) : nullptr;
}

std::string CRegisterInfo::Text(const std::function<std::optional<uint8_t>(uint32_t address)> &valueAt,
                                std::optional<uint8_t> working) const {
    std::vector<RegisterGroupRows> groups;
    size_t group = RegisterGroupNames().size();
    for (const size_t index : shown_) {
        const ChipRegister &entry = registers_[index];
        if (entry.group != group) {
            group = entry.group;
            groups.push_back({std::string(RegisterGroupNames()[group]), {}});
        }
        groups.back().registers.push_back({entry.name, valueAt ? valueAt(entry.address) : std::nullopt});
    }
    if (working && !groups.empty() && !Find("WREG")) groups.front().registers.push_back({"W", working});
    return RegisterText(groups);
}
