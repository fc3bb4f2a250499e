// A list of short texts that the user adds to, changes in place, orders and removes from.
#pragma once

#include <QWidget>
#include <functional>
#include <string>
#include <vector>

class QListWidget;
class QPushButton;

class CListEdit : public QWidget {
    Q_OBJECT
public:
    // `browse`: gives a text chosen by the user, empty for none; without it the list has no such button. `hint` is
    // shown while the list is empty.
    CListEdit(const QString &hint, std::function<QString()> browse, QWidget *parent = nullptr);

    void SetItems(const std::vector<std::string> &items);
    std::vector<std::string> Items() const;  // trimmed, without empty ones
    void SelectItem(const std::string &item);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void Add(const QString &text, bool edit);
    void Remove();
    void Move(int distance);
    void UpdateButtons();

    QListWidget *list_;
    QPushButton *remove_, *up_, *down_;
    QString hint_;
};
