// Choice of the chip: all chips that can be linked for, by family, narrowed down by typing.
#pragma once

#include <QDialog>
#include <string>

class QLineEdit;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

class CTargetDialog : public QDialog {
    Q_OBJECT
public:
    CTargetDialog(const std::string &target, QWidget *parent);

    std::string Target() const;  // "PIC16F628A"; empty while no chip is selected

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;  // the list's keys work while the user types

private:
    void Fill();
    void Filter(const QString &text);
    void UpdateButtons();

    QLineEdit *search_;
    QTreeWidget *tree_;
    QPushButton *ok_;
};
