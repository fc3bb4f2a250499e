#include "debugger/ValueTree.h"

#include <QApplication>

#include "app/Settings.h"
#include "app/StringIds.h"
#include "framework/Language.h"

namespace {

// A section of its own: what the machine's settings say of a section counts only until the user's have it too.
constexpr const char *kSection = "Debug Bars";

}  // namespace

CValueTree::CValueTree(const char *widthKey, QWidget *parent) : CPropTree(parent) {
    SetTitles(LoadText(IDS_COLUMN_NAME), LoadText(IDS_COLUMN_VALUE));
    if (const int width = GetUserInt(kSection, widthKey, 0); width > 0) SetNameWidth(width);
    onNameWidth = [widthKey](int width) { WriteUserInt(kSection, widthKey, width); };
}

bool IsForAllRows() {
    return QApplication::queryKeyboardModifiers().testFlag(Qt::ControlModifier);
}
