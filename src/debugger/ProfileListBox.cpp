#include "debugger/ProfileListBox.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

#include "app/StringIds.h"
#include "debugger/ProfileDelegate.h"
#include "debugger/ProfileListModel.h"
#include "framework/Language.h"
#include "framework/Text.h"
#include "widgets/RowKeys.h"

CProfileListBox::CProfileListBox(QWidget *parent) : QListView(parent), model_(new CProfileListModel(this)) {
    setModel(model_);
    setItemDelegate(new CProfileDelegate(model_->rows, this));
    setUniformItemSizes(true);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFrameShape(QFrame::NoFrame);
}

const CProfileRows &CProfileListBox::Rows() const {
    return model_->rows;
}

void CProfileListBox::SetEmptyText(const std::string &text) {
    emptyText_ = ToQString(text);
    viewport()->update();
}

void CProfileListBox::Change(const std::function<void(CProfileRows &)> &change) {
    CProfileRows rows = model_->rows;
    change(rows);
    model_->Take(std::move(rows));
}

std::string CProfileListBox::SelectedText() const {
    QModelIndexList selected = selectionModel()->selectedIndexes();
    std::ranges::sort(selected, {}, &QModelIndex::row);
    std::string text = LoadText(IDS_PROFILE_COPY_HEADER) + "\n";
    for (const QModelIndex &index : selected) {
        const ProfileRow &row = model_->rows.List()[static_cast<size_t>(index.row())];
        text += row.name + "\t" + std::to_string(row.Percent()) + "%\t" + std::to_string(row.count) + "\n";
    }
    return text;
}

void CProfileListBox::Activate(const QModelIndex &index) {
    if (index.isValid() && onActivate) onActivate(model_->rows.List()[static_cast<size_t>(index.row())].name);
}

bool CProfileListBox::event(QEvent *event) {
    if (event->type() == QEvent::ShortcutOverride) {
        const auto &key = static_cast<QKeyEvent &>(*event);
        if (IsReturnKey(key) || key.matches(QKeySequence::Copy)) event->accept();
    }
    return QListView::event(event);
}

void CProfileListBox::paintEvent(QPaintEvent *event) {
    QListView::paintEvent(event);
    if (model_->rowCount() > 0) return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap, emptyText_);
}

void CProfileListBox::keyPressEvent(QKeyEvent *event) {
    if (IsReturnKey(*event)) {
        Activate(currentIndex());
    } else if (event->matches(QKeySequence::Copy)) {
        if (selectionModel()->hasSelection()) QApplication::clipboard()->setText(ToQString(SelectedText()));
    } else {
        QListView::keyPressEvent(event);
    }
}

void CProfileListBox::mouseDoubleClickEvent(QMouseEvent *event) {
    QListView::mouseDoubleClickEvent(event);
    if (event->button() == Qt::LeftButton) Activate(indexAt(event->position().toPoint()));
}
