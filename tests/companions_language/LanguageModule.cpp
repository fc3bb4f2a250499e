#include "LanguageModule.h"

#include <cctype>
#include <stdexcept>

#include "platform/NativePath.h"
#include "platform/SharedLibrary.h"

namespace module {
namespace {

template <typename Function>
Function *Export(const char *name) {
    static const CSharedLibrary library(FromNativePath(LANGUAGE_MODULE));
    if (!library.IsLoaded()) throw std::runtime_error(library.Error());
    if (auto *function = library.Get<Function>(name)) return function;
    throw std::runtime_error(std::string("no export ") + name);
}

// The rows that `get` hands out; a null with a count, or rows without one, is a broken contract.
template <typename Row>
std::span<const Row> Rows(const Row *(*get)(int32_t, int32_t *), int id) {
    int32_t count = -1;
    const Row *rows = get(id, &count);
    if (count < 0 || (rows == nullptr) != (count == 0)) throw std::runtime_error("rows and count disagree");
    return {rows, static_cast<size_t>(count)};
}

}  // namespace

const char *String(int id) {
    return Export<LangGetStringFn>(kLangGetString)(id);
}
std::span<const LangMenuEntry> Menu(int id) {
    return Rows(Export<LangGetMenuFn>(kLangGetMenu), id);
}
std::span<const LangToolButton> ToolBar(int id) {
    return Rows(Export<LangGetToolBarFn>(kLangGetToolBar), id);
}
std::span<const LangAccelerator> Accelerators(int id) {
    return Rows(Export<LangGetAcceleratorsFn>(kLangGetAccelerators), id);
}
const char *CommandIcon(int command) {
    return Export<LangGetCommandIconFn>(kLangGetCommandIcon)(command);
}

char AccessKey(const std::string &text) {
    const size_t mark = text.find('&');
    if (mark == std::string::npos || mark + 1 == text.size()) return 0;
    return static_cast<char>(std::tolower(static_cast<unsigned char>(text[mark + 1])));
}

}  // namespace module
