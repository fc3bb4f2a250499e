// What every fuzz target has: one function that takes any bytes. A finding is a crash, a sanitizer's report, a hang, or
// what Expect doesn't see hold.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

inline std::string_view AsText(const uint8_t *data, size_t size) {
    return {reinterpret_cast<const char *>(data), size};
}

inline void Expect(bool holds, const char *what) {
    if (holds) return;
    std::fprintf(stderr, "finding: %s\n", what);
    std::abort();
}
