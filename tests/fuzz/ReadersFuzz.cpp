// Texts of the engine, as another engine or a broken one may give them, and the lines of a compiler's listing.
#include "../../companions/engine/readers/ResultText.h"
#include "debugger/EngineApi.h"
#include "fuzz/FuzzTarget.h"

extern "C" {
dbgFrameListFn dbgFrameList;
dbgProfileListFn dbgProfileList;
dbgBitNamesFn dbgBitNames;
dbgSymbolValueFn dbgSymbolValue;
dbgParseOrgStringFn dbgParseOrgString;
}

namespace {

// What the readers have told, and what may be told next.
struct Told {
    std::vector<uint32_t> frames;
    std::vector<ProfileRow> profile;
    std::vector<NamedBit> bits;
    std::vector<RegisterGroupRows> groups;
    int open = 0;
};

constexpr int kTop = -7;

int Open(int parent, const char *name, const char *value, void *user) {
    auto &told = *static_cast<Told *>(user);
    Expect(parent == (told.open == 0 ? kTop : 1) && told.open < 2, "a row stands below the one that is open");
    if (told.open++ == 0) {
        Expect(*value == '\0', "a group has no value");
        told.groups.push_back({name, {}});
        return 1;
    }
    const int number = std::atoi(value);
    Expect(*value == '?' || (number >= 0 && number <= 255), "a value is a byte");
    told.groups.back().registers.push_back({name, std::nullopt});
    if (*value != '?') told.groups.back().registers.back().value = static_cast<uint8_t>(number);
    return 2;
}

void Close(int row, void *user) {
    auto &told = *static_cast<Told *>(user);
    Expect(row == told.open, "rows are closed from inside");
    --told.open;
}

// All of a text that reads; nothing of one that doesn't.
Told Read(const std::string &text) {
    Told told;
    const bool frames = dbgFrameList(
        text.c_str(), [](int address, void *user) { static_cast<Told *>(user)->frames.push_back(address); }, &told);
    const bool profile = dbgProfileList(
        text.c_str(),
        [](const char *name, int count, void *user) {
            Expect(*name != '\0', "a function has a name");
            static_cast<Told *>(user)->profile.push_back({name, static_cast<uint32_t>(count)});
        },
        &told);
    const bool bits = dbgBitNames(
        text.c_str(),
        [](const char *name, int bit, void *user) {
            Expect(*name != '\0' && bit >= 0 && bit < 32, "a bit has a name and a place");
            static_cast<Told *>(user)->bits.push_back({bit, name});
        },
        &told);
    const bool rows = dbgSymbolValue(text.c_str(), kTop, Open, Close, &told);
    Expect(told.open == 0, "each row is closed");
    Expect((frames || told.frames.empty()) && (profile || told.profile.empty()) && (bits || told.bits.empty()) &&
               (rows || told.groups.empty()),
           "nothing is told of a text that doesn't read");
    return told;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    const std::string text(AsText(data, size));
    const Told told = Read(text);
    Expect(Read(FrameListText(told.frames)).frames == told.frames, "addresses come back");
    Expect(Read(ProfileListText(told.profile, 1 << 30)).profile.size() == told.profile.size(), "functions come back");
    Expect(Read(BitNamesText(told.bits)).bits.size() == told.bits.size(), "bits come back");
    const std::string registers = RegisterText(told.groups);
    Expect(RegisterText(Read(registers).groups) == registers, "registers come back");

    char name[256];
    uint16_t address = 65535, bytes = 0;
    if (dbgParseOrgString(text.c_str(), name, &address, &bytes)) {
        Expect(*name != '\0' && address < 65535 && bytes >= 1 && bytes <= 255, "a variable is a real one");
    }
    return 0;
}
