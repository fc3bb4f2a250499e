// The main window: menu, bars, and an area of child frames with tabs.
#pragma once

#include <QElapsedTimer>
#include <QMainWindow>
#include <QPointer>
#include <functional>
#include <string>
#include <vector>

#include "framework/MessageBox.h"
#include "framework/Wnd.h"

class CMDIChildWnd;
class CMDITabs;
class CView;
class CXTToolBar;
class QMdiArea;
class QMenu;
class QTimer;
class CUserStore;

class CMDIFrameWnd : public QMainWindow, public CWnd {
public:
    CMDIFrameWnd();
    ~CMDIFrameWnd() override;

    QWidget *Widget() override { return this; }

    // Builds menu bar and accelerators from the language library. False when the resource has no menu.
    bool LoadFrame(int resource);

    QMdiArea *Client() const { return client_; }
    CMDIChildWnd *MDIGetActive() const;
    CView *GetActiveView() const;
    void FocusActiveView();  // the keyboard back to the active document
    std::vector<CMDIChildWnd *> Children() const;  // in the order of their making
    void AddChild(CMDIChildWnd *child);            // shows it, in the state that it chooses itself
    void ShowTabMenu(CMDIChildWnd *child, const QPoint &at) { OnTabMenu(child, at); }

    // Active view and its document, child frame, a view in a bar, the frame's own map, then the application.
    bool OnCmdMsg(int id, CCmdUI *ui) override;

    // Runs a pop-up of the language library at a global position. The commands go to `target` first, then the usual
    // way.
    void TrackPopupMenu(int resource, const QPoint &at, CCmdTarget *target = nullptr);
    QMenu *MakeMenu(int resource, CCmdTarget *target = nullptr);  // owned by the caller

    QAction *FindTopEntry(const std::string &text) const;  // of the menu bar; null when there is none
    QMenu *FindTopMenu(const std::string &text) const;     // its sub-menu; null when there is none
    QAction *MakeCommandAction(int command, const std::string &text, QObject *owner, CCmdTarget *target = nullptr);
    std::string AcceleratorText(int command) const;     // empty when it has none

    void RunCommand(int id, CCmdTarget *target = nullptr);  // if its state allows it; `target` is asked first
    void UpdateCommandUI();     // all tool bars, one pass
    void ShowCommandHelp(int command);

    // Layout of bars under a name of the user's store. A state of another version, or a damaged one, is not loaded and
    // the bars stay where they are.
    virtual void SaveBarState(const std::string &name);
    virtual bool LoadBarState(const std::string &name);
    bool HasBarState(const std::string &name);  // one that can be loaded

    QMenu *createPopupMenu() override;  // on a right click beside a bar's content

    void SetTabs(bool on, bool top);
    void HideTabs(bool hide);  // for a while, whatever the user set
    void Cascade();
    void Tile(Qt::Orientation rows);  // horizontal: one above the other
    static constexpr int kWindowListEntries = 9;
    // The first open children at the menu's end; when there are more, an entry of text `all` for all of them, whose
    // command follows those of the list.
    void FillWindowList(QMenu *menu, int firstCommand, const std::string &all);
    static void RemoveCommands(QMenu *menu, int first, int last);  // all entries of these commands
    void RefreshTabs();

protected:
    virtual void OnInitMenu() {}                    // a menu is about to open: rebuild what changes
    virtual CUserStore &UserStore() = 0;            // where layouts are kept
    virtual std::string ComposeTitle() const = 0;   // the one title of the window
    virtual CView *GetBarView() const { return nullptr; }  // of the bar that holds the focus
    virtual void OnTabMenu(CMDIChildWnd *child, const QPoint &at) {}
    virtual void OnStatusHelp(const std::string &text) {}
    virtual int BarMenu() const { return 0; }       // the menu of all bars in the language library
    static bool CanBeGrabbed(const QWidget &window);  // enough of its title is on a screen to move it
    QMenu *AddSubMenu(QWidget *parent, const std::string &text, CCmdTarget *target = nullptr);  // of a menu or menu bar
    void SetActiveView(CView *view);                // tells the views; null: none is active
    void UpdateTitle();
    bool event(QEvent *event) override;

    void OnClientChanged();  // children came, went or changed places

private:
    bool RouteCommand(int id, CCmdUI *ui, CCmdTarget *target);
    void FillMenu(QMenu *menu, int resource, CCmdTarget *target);
    QRect CascadePlace(int index) const;
    void PrepareMenu(QMenu *menu, CCmdTarget *target);
    void BuildAccelerators(int resource);
    QByteArray ReadBarState(const std::string &name, bool &statusBar);
    void BringBarsOnScreen();

    QMdiArea *client_;
    CMDITabs *tabs_;
    QPointer<QWidget> activeView_;  // the view that knows that it is active
    std::vector<std::pair<int, std::string>> accelerators_;  // command and keys
    bool composing_ = false;
    bool tabsOn_ = true, tabsHidden_ = false;
    QTimer *idle_;
    QElapsedTimer updatedByIdle_;
    bool restless_ = true;  // events came since the last pass over the tool bars
};
