#include "editor/SciLexer.h"

bool CSciLexer::Load(const std::string &path) {
    Free();
    library_ = CSharedLibrary(path);
    create_ = library_.Get<SciLexerCreateFn>(kSciLexerCreate);
    send_ = library_.Get<SciLexerSendFn>(kSciLexerSend);
    setNotify_ = library_.Get<SciLexerSetNotifyFn>(kSciLexerSetNotify);
    if (create_ && send_ && setNotify_) return true;
    Free();
    return false;
}

void CSciLexer::Free() {
    create_ = nullptr;
    send_ = nullptr;
    setNotify_ = nullptr;
    library_ = CSharedLibrary();
}

CSciWindow CSciLexer::Create(QWidget *parent, SciLexerNotifyFn *notify, void *context) const {
    QWidget *window = IsLoaded() ? create_(parent) : nullptr;
    if (!window) return {};
    if (notify) setNotify_(window, notify, context);
    return {window, send_};
}

void CSciLexer::SetNotify(const CSciWindow &window, SciLexerNotifyFn *notify, void *context) const {
    if (window && setNotify_) setNotify_(window.Widget(), notify, context);
}
