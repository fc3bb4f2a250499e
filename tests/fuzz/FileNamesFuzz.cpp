// File names as projects, markers and images have them. Making one full must not lead to another file.
#include "debugger/EngineFileName.h"
#include "fuzz/FuzzTarget.h"
#include "platform/PathCalls.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    std::string name(AsText(data, size));
    const std::string full = EngineFileName(name);
    Expect(EngineFileName(full) == full, "a full name is full already");
    if (full == name) return 0;

    Expect(full.find_first_of("/\"") == full.npos, "a full name has neither slashes nor quotes");
    if (name.starts_with('"')) name.erase(0, 1);
    if (name.ends_with('"')) name.pop_back();
    std::string expected;
    if (PathCanonicalizeA(expected, GetFullPathNameA(name)) && expected.find("\\..\\") == expected.npos)
        Expect(GetFullPathNameA(full) == expected, "both names mean one file");
    return 0;
}
