// Asks for an expression to watch.
#pragma once

#include <QDialog>
#include <string>
#include <vector>

class QComboBox;

class CQuickWatchDlg : public QDialog {
public:
    // The box shows `expression`, all of it selected; its list offers `names` in their order.
    CQuickWatchDlg(QWidget *parent, const std::string &expression, const std::vector<std::string> &names);

    std::string Expression() const;  // without blanks around

private:
    QComboBox *expression_;
};
