#include "ListEdit.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

CListEdit::CListEdit(const QString &hint, std::function<QString()> browse, QWidget *parent)
    : QWidget(parent), list_(new QListWidget), hint_(hint) {
    list_->setAlternatingRowColors(true);
    list_->setMinimumHeight(list_->fontMetrics().height() * 6);
    list_->setMinimumWidth(list_->fontMetrics().averageCharWidth() * 36);
    list_->viewport()->installEventFilter(this);
    list_->installEventFilter(this);
    setFocusProxy(list_);

    auto *buttons = new QVBoxLayout;
    const auto addButton = [&](const QString &text, auto &&action) {
        auto *button = new QPushButton(text);
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, action);
        buttons->addWidget(button);
        return button;
    };
    addButton(tr("Add"), [this] { Add({}, true); });
    if (browse) {
        addButton(tr("Browse..."), [this, browse] {
            if (const QString text = browse(); !text.isEmpty()) Add(text, false);
        });
    }
    remove_ = addButton(tr("Remove"), [this] { Remove(); });
    up_ = addButton(tr("Up"), [this] { Move(-1); });
    down_ = addButton(tr("Down"), [this] { Move(1); });
    buttons->addStretch();

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(list_, 1);
    layout->addLayout(buttons);
    connect(list_, &QListWidget::currentRowChanged, this, [this] { UpdateButtons(); });
    UpdateButtons();
}

void CListEdit::SetItems(const std::vector<std::string> &items) {
    list_->clear();
    for (const std::string &item : items) Add(QString::fromStdString(item), false);
    list_->setCurrentRow(items.empty() ? -1 : 0);
}

std::vector<std::string> CListEdit::Items() const {
    std::vector<std::string> items;
    for (int row = 0; row < list_->count(); ++row)
        if (const QString text = list_->item(row)->text().trimmed(); !text.isEmpty())
            items.push_back(text.toStdString());
    return items;
}

void CListEdit::SelectItem(const std::string &item) {
    const auto found = list_->findItems(QString::fromStdString(item), Qt::MatchExactly);
    if (!found.isEmpty()) list_->setCurrentItem(found.front());
    list_->setFocus();
}

bool CListEdit::eventFilter(QObject *watched, QEvent *event) {
    if (watched == list_ && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent *>(event)->key() == Qt::Key_Delete) {
        Remove();
        return true;
    }
    if (watched == list_->viewport() && event->type() == QEvent::Paint && list_->count() == 0) {
        QPainter painter(list_->viewport());
        painter.setPen(list_->palette().color(QPalette::PlaceholderText));
        painter.drawText(list_->viewport()->rect().adjusted(6, 4, -6, -4), Qt::TextWordWrap, hint_);
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void CListEdit::Add(const QString &text, bool edit) {
    auto *item = new QListWidgetItem(text, list_);
    item->setFlags(item->flags() | Qt::ItemIsEditable);
    list_->setCurrentItem(item);
    if (edit) list_->editItem(item);
    UpdateButtons();
}

void CListEdit::Remove() {
    delete list_->takeItem(list_->currentRow());
    UpdateButtons();
}

void CListEdit::Move(int distance) {
    const int row = list_->currentRow(), target = row + distance;
    if (row < 0 || target < 0 || target >= list_->count()) return;
    list_->insertItem(target, list_->takeItem(row));
    list_->setCurrentRow(target);
}

void CListEdit::UpdateButtons() {
    const int row = list_->currentRow();
    remove_->setEnabled(row >= 0);
    up_->setEnabled(row > 0);
    down_->setEnabled(row >= 0 && row + 1 < list_->count());
}
