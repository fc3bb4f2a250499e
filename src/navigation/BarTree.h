// How the trees of the workspace bar look and are worked with.
#pragma once

#include <QTreeView>

#include "navigation/FolderDelegate.h"

inline void SetUpBarTree(QTreeView &tree) {
    constexpr int kIconSize = 16;  // pixels
    tree.setItemDelegate(new CFolderDelegate(&tree));
    tree.setHeaderHidden(true);
    tree.setUniformRowHeights(true);
    tree.setSelectionMode(QAbstractItemView::SingleSelection);
    tree.setEditTriggers(QAbstractItemView::NoEditTriggers);
    tree.setTextElideMode(Qt::ElideMiddle);
    tree.setIconSize(QSize(kIconSize, kIconSize));
    tree.setFrameShape(QFrame::NoFrame);
}
