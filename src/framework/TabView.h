// A view that holds other views, each in a tab with a document of its own.
#pragma once

#include <QIcon>
#include <functional>
#include <string>
#include <vector>

#include "framework/View.h"

class QTabWidget;

// Owns the views in its tabs, not their documents. With one tab alone the strip of tabs doesn't show. Main thread.
class CTabView : public CView {
public:
    using MakeView = std::function<CView *(QWidget *parent)>;

    explicit CTabView(QWidget *parent = nullptr);
    ~CTabView() override;

    void SetImageList(std::vector<QIcon> images, int size);  // `size`: pixels

    // Makes a view of `document` in a new tab at the end, with one of the images or, for -1, none.
    CView *AddTab(const std::string &caption, const MakeView &make, CDocument &document, int image = -1);
    void RemoveTab(CView *view);  // destroys the view; the document stays

    int TabCount() const;
    std::string TabCaption(int tab) const;
    CView *GetActiveTab() const;  // null without tabs
    void SetActiveTab(CView *view);

protected:
    void focusInEvent(QFocusEvent *event) override;  // goes on to the active tab's view

private:
    QTabWidget *tabs_;
    std::vector<QIcon> images_;
};
