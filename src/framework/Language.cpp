#include "framework/Language.h"

#include "framework/Text.h"

bool CLanguage::Load(const std::string &path) {
    CSharedLibrary library(path);
    if (!library.IsLoaded()) return false;
    auto *getString = library.Get<LangGetStringFn>(kLangGetString);
    auto *getMenu = library.Get<LangGetMenuFn>(kLangGetMenu);
    auto *getToolBar = library.Get<LangGetToolBarFn>(kLangGetToolBar);
    auto *getAccelerators = library.Get<LangGetAcceleratorsFn>(kLangGetAccelerators);
    auto *getCommandIcon = library.Get<LangGetCommandIconFn>(kLangGetCommandIcon);
    if (!getString || !getMenu || !getToolBar || !getAccelerators || !getCommandIcon) return false;
    getString_ = getString;
    getMenu_ = getMenu;
    getToolBar_ = getToolBar;
    getAccelerators_ = getAccelerators;
    getCommandIcon_ = getCommandIcon;
    library_ = std::move(library);
    return true;
}

void CLanguage::Free() { *this = CLanguage(); }

std::string CLanguage::String(int id) const {
    const char *text = getString_ ? getString_(id) : nullptr;
    return text ? text : "";
}

namespace {

template <typename Entry, typename Function>
std::span<const Entry> Table(Function *get, int id) {
    int32_t count = 0;
    const Entry *entries = get ? get(id, &count) : nullptr;
    return entries ? std::span(entries, static_cast<size_t>(count)) : std::span<const Entry>();
}

}  // namespace

std::span<const LangMenuEntry> CLanguage::Menu(int id) const { return Table<LangMenuEntry>(getMenu_, id); }
std::span<const LangToolButton> CLanguage::ToolBar(int id) const { return Table<LangToolButton>(getToolBar_, id); }
std::span<const LangAccelerator> CLanguage::Accelerators(int id) const {
    return Table<LangAccelerator>(getAccelerators_, id);
}

std::string CLanguage::CommandIcon(int command) const {
    const char *icon = getCommandIcon_ ? getCommandIcon_(command) : nullptr;
    return icon ? icon : "";
}

CLanguage &CLanguage::Current() {
    static CLanguage language;
    return language;
}

std::string LoadText(int id, std::initializer_list<std::string> values) {
    const std::string text = CLanguage::Current().String(id);
    return values.size() == 0 ? text : FormatText(text, values);
}
