#include "debugger/TypedValueMessages.h"

#include "app/IDEApp.h"
#include "app/StringIds.h"
#include "debugger/ValueFormat.h"
#include "framework/Language.h"

void TellNoNumber(int format) {
    const bool known = format >= kDecimal && format <= kHexadecimal;
    CIDEApp::Get().AddOutputLine(LoadText(IDS_NOT_DECIMAL + (known ? format : kDecimal)));
}

void TellNotSet(int text, const std::string &name, const std::string &why) {
    CIDEApp::Get().AddOutputLine(LoadText(text, {name}) + (why.empty() ? "" : " " + why));
}
