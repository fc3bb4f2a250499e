// The build list: plain lines, read as messages only when the user goes to one.
#pragma once

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

    // Selects the next message and shows its place. A search that takes long goes on while the window works.
    void NextMessage();

protected:
    void OnActivate(int index) override;
    void OnClick(int index) override;
    void OnReset() override;
    int MenuResource() const override;
    QColor TextColor(std::string_view line) const override;
    void DrawText(QPainter &painter, const Row &row) const override;

private:
    void SearchOn();
    void CopyOrTell();

    std::unique_ptr<MessageSearch> search_;  // empty: no search is under way
    QTimer searchOn_;
};
