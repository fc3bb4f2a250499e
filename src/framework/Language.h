// The loaded language library: all words, menus, tool bars and accelerators by number.
#pragma once

#include <span>
#include <string>

#include "framework/LanguageApi.h"
#include "platform/SharedLibrary.h"

class CLanguage {
public:
    // Loads the library from a file in the Windows form. False when it can't be loaded or lacks an export.
    bool Load(const std::string &path);
    void Free();

    std::string String(int id) const;  // empty for an unknown id or without a library
    std::span<const LangMenuEntry> Menu(int id) const;
    std::span<const LangToolButton> ToolBar(int id) const;
    std::span<const LangAccelerator> Accelerators(int id) const;
    std::string CommandIcon(int command) const;

    static CLanguage &Current();  // the process's one; main thread

private:
    CSharedLibrary library_;
    LangGetStringFn *getString_ = nullptr;
    LangGetMenuFn *getMenu_ = nullptr;
    LangGetToolBarFn *getToolBar_ = nullptr;
    LangGetAcceleratorsFn *getAccelerators_ = nullptr;
    LangGetCommandIconFn *getCommandIcon_ = nullptr;
};

// Text `id` of the current language library, with its "%s" and "%d" filled in.
std::string LoadText(int id, std::initializer_list<std::string> values = {});
