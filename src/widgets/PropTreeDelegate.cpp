#include "widgets/PropTreeDelegate.h"

#include <QLineEdit>

#include "framework/Text.h"
#include "widgets/PropTreeModel.h"

namespace {

CPropTreeItemEdit *EditedItem(const QModelIndex &index) {
    return index.isValid() ? dynamic_cast<CPropTreeItemEdit *>(CPropTreeModel::ItemOf(index)) : nullptr;
}

}  // namespace

QWidget *CPropTreeDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &,
                                         const QModelIndex &index) const {
    CPropTreeItemEdit *const item = EditedItem(index);
    if (!item || !item->BeginEdit()) return nullptr;
    auto *const editor = new QLineEdit(parent);
    editor->setFrame(false);
    editor->setAccessibleName(ToQString(item->Label()));
    return editor;
}

void CPropTreeDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const {
    auto &line = static_cast<QLineEdit &>(*editor);
    line.setText(ToQString(CPropTreeModel::ItemOf(index)->Value()));
    line.setModified(false);
    line.selectAll();
}

// A value that nobody has typed over stays, also where its text couldn't be read back.
void CPropTreeDelegate::setModelData(QWidget *editor, QAbstractItemModel *, const QModelIndex &index) const {
    const auto &line = static_cast<const QLineEdit &>(*editor);
    CPropTreeItemEdit *const item = EditedItem(index);
    if (item && line.isModified()) item->CommitEdit(FromQString(line.text()));
}

void CPropTreeDelegate::updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                                             const QModelIndex &) const {
    editor->setGeometry(option.rect);
}
