#include "navigation/CodeWindows.h"

#include "app/StringIds.h"
#include "editor/ListBar.h"
#include "navigation/CallTreeView.h"
#include "navigation/FuncInfoView.h"

namespace {

// What a toolsuite is asked for.
enum CodeWindowType { kCallTreeWindow = 1, kFuncInfoWindow = 2 };

template <typename View>
CCodeWindowView *Make(QWidget *parent) {
    return new View(parent);
}

}  // namespace

void OfferCodeWindows(CListBar &bar) {
    bar.OfferCodeWindow(kCallTreeWindow, IDS_TAB_CALL_TREE, Make<CCallTreeView>);
    bar.OfferCodeWindow(kFuncInfoWindow, IDS_TAB_FUNCTIONS, Make<CFuncInfoView>);
}
