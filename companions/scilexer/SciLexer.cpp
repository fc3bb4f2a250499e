// The module's exports.
#include <exception>

#include "Component.h"

#define MODULE_EXPORT extern "C" __attribute__((visibility("default")))

MODULE_EXPORT QWidget *SciLexerCreate(QWidget *parent) try {
    auto *component = new CComponent(parent);
    component->setGeometry(0, 0, 0, 0);
    if (parent) component->show();
    return component;
} catch (const std::exception &) {
    return nullptr;
}

MODULE_EXPORT intptr_t SciLexerSend(QWidget *window, uint32_t message, uintptr_t wParam, intptr_t lParam) try {
    auto *component = dynamic_cast<CComponent *>(window);
    if (!component) return 0;
    return component->SendScintilla(message, static_cast<unsigned long>(wParam), static_cast<long>(lParam));
} catch (const std::exception &) {
    return 0;
}

MODULE_EXPORT void SciLexerSetNotify(QWidget *window, SciLexerNotifyFn *notify, void *context) {
    if (auto *component = dynamic_cast<CComponent *>(window)) component->SetNotify(notify, context);
}

namespace {

// The exports have the types that the contract gives them.
[[maybe_unused]] constexpr SciLexerCreateFn *kCreate = &SciLexerCreate;
[[maybe_unused]] constexpr SciLexerSendFn *kSend = &SciLexerSend;
[[maybe_unused]] constexpr SciLexerSetNotifyFn *kSetNotify = &SciLexerSetNotify;

}  // namespace
