// The docking bar with the build list, the find list and the debugger's notices.
#pragma once

#include <string_view>

#include "framework/DockBar.h"

class CBuildListBox;
class CFindListBox;
class CListBoxForFlatTabCtrl;
class QStackedWidget;
class QTabBar;

class COutputBar : public CDockBar {
public:
    static constexpr int kId = 0xe86d;
    enum Tab { kTabBuild, kTabFind, kTabNotices };

    explicit COutputBar(QWidget *parent);

    void ShowTab(Tab tab);  // to the front, and the bar with it

    void AddBuildLine(std::string_view text);  // to the build list, which follows it
    void ClearBuildList();

    CBuildListBox &BuildList() const { return *buildList_; }
    CFindListBox &FindList() const { return *findList_; }
    CListBoxForFlatTabCtrl &NoticeList() const { return *noticeList_; }

    // Offers a command to the list on show, then to the build list.
    bool OnCmdMsg(int id, CCmdUI *ui) override;

private:
    void AddPage(CListBoxForFlatTabCtrl *list, int title);
    CListBoxForFlatTabCtrl *CurrentList() const;

    QTabBar *tabs_;
    QStackedWidget *pages_;
    CBuildListBox *buildList_;
    CFindListBox *findList_;
    CListBoxForFlatTabCtrl *noticeList_;
};
