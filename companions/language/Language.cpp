#include <type_traits>

#include "Tables.h"

#define THORNWELL_EXPORT extern "C" __attribute__((visibility("default")))

namespace {

template <typename Row>
const Row *Hand(std::span<const Row> rows, int32_t *count) {
    if (count) *count = static_cast<int32_t>(rows.size());
    return rows.empty() ? nullptr : rows.data();
}

}  // namespace

THORNWELL_EXPORT const char *LangGetString(int32_t id) {
    return language::FindText(id);
}

THORNWELL_EXPORT const LangMenuEntry *LangGetMenu(int32_t id, int32_t *count) {
    return Hand(language::FindMenu(id), count);
}

THORNWELL_EXPORT const LangToolButton *LangGetToolBar(int32_t id, int32_t *count) {
    return Hand(language::FindToolBar(id), count);
}

THORNWELL_EXPORT const LangAccelerator *LangGetAccelerators(int32_t id, int32_t *count) {
    return Hand(language::FindAccelerators(id), count);
}

THORNWELL_EXPORT const char *LangGetCommandIcon(int32_t command) {
    return language::FindCommandIcon(command);
}

static_assert(std::is_same_v<decltype(LangGetString), LangGetStringFn>);
static_assert(std::is_same_v<decltype(LangGetMenu), LangGetMenuFn>);
static_assert(std::is_same_v<decltype(LangGetToolBar), LangGetToolBarFn>);
static_assert(std::is_same_v<decltype(LangGetAccelerators), LangGetAcceleratorsFn>);
static_assert(std::is_same_v<decltype(LangGetCommandIcon), LangGetCommandIconFn>);
