#include "widgets/PropTreeItem.h"

#include "widgets/PropTreeModel.h"

void CPropTreeItem::Changed() {
    if (model_) model_->TellChange();
}

void CPropTreeItem::SetLabel(std::string label) {
    if (label_ == label) return;
    label_ = std::move(label);
    Changed();
}

void CPropTreeItem::SetValue(std::string value) {
    if (value_ == value) return;
    value_ = std::move(value);
    Changed();
}

void CPropTreeItem::SetLook(PropLook look) {
    if (look_ == look) return;
    look_ = look;
    Changed();
}

void CPropTreeItem::Mark(bool on) {
    if (marked_ == on) return;
    marked_ = on;
    Changed();
}
