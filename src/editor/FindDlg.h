// Finds a text in a view and closes.
#pragma once

#include "editor/SearchDlg.h"

class CFindDlg : public CSearchDlg {
public:
    CFindDlg(QWidget *parent, CIDEView &view, const std::string &text);

    void accept() override;
};
