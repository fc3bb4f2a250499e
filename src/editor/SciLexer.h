// The editing component's module, "SciLexer.dll".
#pragma once

#include <string>

#include "editor/SciWindow.h"
#include "platform/SharedLibrary.h"

// Main thread.
class CSciLexer {
public:
    // Loads the module from a file in the Windows form. False when it can't be loaded or lacks an export.
    bool Load(const std::string &path);
    void Free();  // no window of the component may be left
    bool IsLoaded() const { return create_ != nullptr; }

    // A new component window in `parent`, which owns it; an empty handle on failure. `notify` may be null.
    CSciWindow Create(QWidget *parent, SciLexerNotifyFn *notify = nullptr, void *context = nullptr) const;
    void SetNotify(const CSciWindow &window, SciLexerNotifyFn *notify, void *context) const;

private:
    CSharedLibrary library_;
    SciLexerCreateFn *create_ = nullptr;
    SciLexerSendFn *send_ = nullptr;
    SciLexerSetNotifyFn *setNotify_ = nullptr;
};
