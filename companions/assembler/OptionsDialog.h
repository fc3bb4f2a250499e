// The option sheet of one configuration: two tabs of the toolsuite's own, and the host's pages behind them.
#pragma once

#include <QDialog>
#include <span>
#include <string>

#include "Options.h"

class CListEdit;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QTabWidget;

class COptionsDialog : public QDialog {
    Q_OBJECT
public:
    // `directory`: the project's, Windows form with its trailing separator; chosen files are stored relative to it.
    COptionsDialog(const Options &options, const std::string &configuration, const std::string &directory,
                   std::span<QWidget *> hostPages, QWidget *parent);
    ~COptionsDialog() override;  // gives the host's pages back without a parent

    Options Result() const;

    void accept() override;  // stays open and shows what is wrong while an entry can't be used

private:
    QWidget *MakeAssemblerPage();
    QWidget *MakeLinkerPage();
    void Show(const Options &options);
    QString BrowseDirectory();
    void BrowseScript();
    bool Refuse(int tab, const std::string &error);
    std::string Stored(const QString &native) const;

    const std::string directory_;
    std::span<QWidget *> hostPages_;
    QTabWidget *tabs_;
    QLabel *error_;
    CListEdit *defines_, *includePaths_;
    QComboBox *radix_, *messages_;
    QCheckBox *ignoreCase_;
    QLineEdit *assemblerExtra_, *linkerScript_, *linkerExtra_;
};
