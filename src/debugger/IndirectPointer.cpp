#include "debugger/IndirectPointer.h"

#include "platform/PathCalls.h"

PointerParts PointerPartsOf(const std::string &target) {
    const bool wide = StartsWithNoCase(target, "pic18") || StartsWithNoCase(target, "pic16lf1");
    return wide ? PointerParts{"$FSR0H", "$FSR0L"} : PointerParts{"$STATUS", "$FSR", true};
}

int PointerAddressOf(const PointerParts &parts, int64_t high, int64_t low) {
    constexpr int kBankBit = 0x80, kBankSize = 256;
    if (parts.isBank) return static_cast<uint16_t>(low + (high & kBankBit ? kBankSize : 0));
    return static_cast<uint16_t>(high * 256 + low);
}
