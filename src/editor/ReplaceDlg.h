// Finds and replaces texts in a view, as often as the user likes.
#pragma once

#include "editor/SearchDlg.h"

class CReplaceDlg : public CSearchDlg {
public:
    CReplaceDlg(QWidget *parent, CIDEView &view, const std::string &text);
    ~CReplaceDlg() override;

    void accept() override;  // finds, and stays open

private:
    void Replace(bool one);
    void MakeRoomForHit();

    QComboBox *replacement_;
};
