#include "Component.h"

#include <QTest>
#include <algorithm>

#include "platform/NativePath.h"

CTestComponent::CTestComponent() {
    lexer.Load(FromNativePath(SCILEXER_MODULE));
    const auto notify = [](void *self, const SciLexerNotification *notification) {
        const bool hasText = notification->code == SCN_MODIFIED && notification->text;
        static_cast<CTestComponent *>(self)->told.push_back(
            {*notification, hasText ? std::string(notification->text, static_cast<size_t>(notification->length)) : ""});
    };
    sci = lexer.Create(&parent, notify, this);
    parent.resize(400, 300);
    if (sci) sci.Widget()->resize(400, 300);
    parent.show();
    (void)QTest::qWaitForWindowExposed(&parent);
}

size_t CTestComponent::CountOf(uint32_t code) const {
    return static_cast<size_t>(std::ranges::count(told, code, [](const Told &each) { return each.notification.code; }));
}

const CTestComponent::Told *CTestComponent::LastOf(uint32_t code) const {
    for (auto each = told.rbegin(); each != told.rend(); ++each)
        if (each->notification.code == code) return &*each;
    return nullptr;
}

void CTestComponent::Fill(const char *text) const {
    sci.SendText(SCI_SETTEXT, 0, text);
}
