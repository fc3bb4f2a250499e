// The list of extra locations, to be changed.
#pragma once

#include <QDialog>
#include <string>

class QListWidget;
class QPushButton;

class CExtraBrowseLocationsDlg : public QDialog {
public:
    // `file` keeps the list, see ExtraLocations.h; empty: there is none, and nothing is stored.
    CExtraBrowseLocationsDlg(QWidget *parent, std::string file);

    void accept() override;  // stores the list; stays open, with a word, when that can't be

private:
    void AddFiles();
    void AddFolder();
    void Remove();
    void Add(const std::string &location);     // nothing when it is there already
    void Append(const std::string &location);  // nothing for an empty one
    void UpdateButtons();

    std::string file_;
    QListWidget *list_;
    QPushButton *addFolder_;
    QPushButton *remove_;
};
