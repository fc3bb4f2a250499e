#include "editor/CodeViewContainer.h"

#include "framework/Icons.h"

namespace {

constexpr int kImageSize = 16;  // pixels

}  // namespace

CCodeViewContainer::CCodeViewContainer(QWidget *parent) : CTabView(parent) {
    SetImageList({LoadIcon("bar-listing")}, kImageSize);
}
