// The debug run of this process, and what the exports have in common.
#pragma once

#include <algorithm>
#include <cstring>
#include <exception>
#include <memory>
#include <string>
#include <string_view>

#include "Run.h"
#include "debugger/EngineApi.h"

#define ENGINE_EXPORT extern "C" __attribute__((visibility("default")))

std::shared_ptr<CRun> CurrentRun();  // null: there is none

// What DbgGetErrorText gives from now on; empty when the call that has it has not failed.
void KeepError(const std::string &error);

// The answer of an export that is `body` on the current run: kDbgFailed when there is none. No exception leaves.
template <typename Body>
int OnRun(Body body) try {
    const std::shared_ptr<CRun> run = CurrentRun();
    return run ? body(*run) : kDbgFailed;
} catch (const std::exception &) {
    return kDbgFailed;
}

inline int Answer(bool good) {
    return good ? kDbgOk : kDbgFailed;
}

// `text` with its zero into a caller's buffer, whole or not at all.
inline int GiveText(std::string_view text, char *buffer, int size) {
    if (!buffer) return kDbgFailed;
    if (size < 0 || text.size() >= static_cast<size_t>(size)) return kDbgTooSmall;
    memcpy(buffer, text.data(), text.size());
    buffer[text.size()] = 0;
    return kDbgOk;
}

// As much of `text` as goes into a buffer of 256 bytes, without a cut character.
inline void GiveShortText(std::string_view text, char *buffer) {
    size_t length = std::min<size_t>(text.size(), 255);
    while (length < text.size() && length > 0 && (text[length] & 0xC0) == 0x80) --length;
    memcpy(buffer, text.data(), length);
    buffer[length] = 0;
}
