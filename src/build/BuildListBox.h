// The build list: plain lines, read as messages only when the user goes to one.
#pragma once

#include <QFont>
#include <memory>
#include <string>

#include "build/ListBoxForFlatTabCtrl.h"

class MessageSearch;

class CBuildListBox : public CListBoxForFlatTabCtrl {
public:
    static constexpr int kId = 1002;

    explicit CBuildListBox(QWidget *parent);
    ~CBuildListBox() override;

    // The place that the line at `index` points to; false when it is no message.
    bool GetLineInfo(int index, std::string &file, int &line) const;

    void NextMessage();  // selects the next message and shows its place; long lists are searched in the background
    void CopyAll();      // all lines, each ended with CR LF, to the clipboard

protected:
    void OnActivate(int index) override;
    void OnClick(int index) override;
    void OnReset() override;
    int MenuResource() const override;
    void DrawRow(QPainter &painter, const Row &row, std::string_view line) const override;

private:
    void SearchOn();

    std::unique_ptr<MessageSearch> search_;  // empty: no search is under way
    QTimer searchOn_;
};
