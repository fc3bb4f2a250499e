#include "TargetDialog.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "DeviceList.h"

namespace {

struct Family {
    const char *key;  // gpasm's class
    const char *title;
};

constexpr Family kFamilies[] = {
    {"PIC12", "Baseline, 12-bit instructions"},  {"PIC12E", "Enhanced baseline, 12-bit instructions"},
    {"PIC14", "Mid-range, 14-bit instructions"}, {"PIC14E", "Enhanced mid-range, 14-bit instructions"},
    {"PIC16E", "PIC18, 16-bit instructions"},
};

QString ProgramMemory(const Device &device) {
    if (device.programSize == 0) return {};
    return QObject::tr(device.countsBytes ? "%1 bytes" : "%1 words").arg(device.programSize);
}

}  // namespace

CTargetDialog::CTargetDialog(const std::string &target, QWidget *parent)
    : QDialog(parent), search_(new QLineEdit), tree_(new QTreeWidget) {
    setWindowTitle(tr("Target"));
    search_->setPlaceholderText(tr("Search, for example 16f62 or 4520"));
    search_->setClearButtonEnabled(true);
    search_->installEventFilter(this);

    tree_->setHeaderLabels({tr("Device"), tr("Program memory"), tr("EEPROM")});
    for (const int column : {1, 2}) tree_->headerItem()->setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
    tree_->setUniformRowHeights(true);
    tree_->setIndentation(16);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    ok_ = buttons->button(QDialogButtonBox::Ok);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(search_);
    layout->addWidget(tree_, 1);
    layout->addWidget(buttons);
    Fill();
    tree_->header()->setStretchLastSection(false);
    tree_->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    for (const int column : {1, 2}) {
        tree_->header()->setSectionResizeMode(column, QHeaderView::Fixed);
        tree_->setColumnWidth(column, fontMetrics().horizontalAdvance(tree_->headerItem()->text(1)) + 32);
    }
    resize(fontMetrics().averageCharWidth() * 78, fontMetrics().height() * 30);

    if (const Device *device = FindDevice(target)) {
        const auto found =
            tree_->findItems(QString::fromStdString(device->name), Qt::MatchExactly | Qt::MatchRecursive);
        if (!found.isEmpty()) {
            tree_->setCurrentItem(found.front());
            tree_->scrollToItem(found.front(), QAbstractItemView::PositionAtCenter);
        }
    }
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(search_, &QLineEdit::textChanged, this, &CTargetDialog::Filter);
    connect(tree_, &QTreeWidget::currentItemChanged, this, [this] { UpdateButtons(); });
    connect(tree_, &QTreeWidget::itemDoubleClicked, this, [this](QTreeWidgetItem *item) {
        if (item->parent()) accept();
    });
    UpdateButtons();
    search_->setFocus();
}

void CTargetDialog::Fill() {
    for (const Family &family : kFamilies) {
        auto *group = new QTreeWidgetItem(tree_, {QString::fromUtf8(family.title)});
        group->setFlags(Qt::ItemIsEnabled);
        group->setFirstColumnSpanned(true);
        QFont bold = tree_->font();
        bold.setBold(true);
        group->setFont(0, bold);
        for (const Device &device : Devices()) {
            if (device.family != family.key) continue;
            auto *item =
                new QTreeWidgetItem(group, {QString::fromStdString(device.name), ProgramMemory(device),
                                            device.eepromSize ? tr("%1 bytes").arg(device.eepromSize) : QString()});
            item->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
            item->setTextAlignment(2, Qt::AlignRight | Qt::AlignVCenter);
        }
        group->setExpanded(true);
    }
}

void CTargetDialog::Filter(const QString &text) {
    const QString wanted = text.trimmed();
    QTreeWidgetItem *first = nullptr;
    for (int g = 0; g < tree_->topLevelItemCount(); ++g) {
        QTreeWidgetItem *group = tree_->topLevelItem(g);
        bool any = false;
        for (int i = 0; i < group->childCount(); ++i) {
            QTreeWidgetItem *item = group->child(i);
            const bool matches = item->text(0).contains(wanted, Qt::CaseInsensitive);
            item->setHidden(!matches);
            any = any || matches;
            if (matches && !first) first = item;
        }
        group->setHidden(!any);
    }
    QTreeWidgetItem *current = tree_->currentItem();
    if (!current || current->isHidden() || !current->parent()) tree_->setCurrentItem(first);
    if (tree_->currentItem()) tree_->scrollToItem(tree_->currentItem(), QAbstractItemView::PositionAtCenter);
    UpdateButtons();
}

std::string CTargetDialog::Target() const {
    const QTreeWidgetItem *item = tree_->currentItem();
    return item && item->parent() && !item->isHidden() ? item->text(0).toStdString() : std::string();
}

void CTargetDialog::UpdateButtons() {
    ok_->setEnabled(!Target().empty());
}

bool CTargetDialog::eventFilter(QObject *watched, QEvent *event) {
    if (watched == search_ && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown) {
            QCoreApplication::sendEvent(tree_, event);
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}
