// The pages of a printing on the screen, one at a time. Only the page on show is drawn, so any number of them can be.
#pragma once

#include <QDialog>
#include <functional>
#include <string>

class CPreviewSheet;
class CPrintSession;
class QScrollArea;
class QSpinBox;
class QToolButton;
struct PreviewTexts;

class CPrintPreviewDlg : public QDialog {
public:
    static constexpr int kPrint = 2;  // result besides Rejected: the user wants to print

    CPrintPreviewDlg(QWidget *parent, CPrintSession &session, const PreviewTexts &texts);

    int Page() const;
    void ShowPage(int page);  // from 1; the nearest there is
    void Zoom(int steps);     // inwards, or below 0 outwards

private:
    QToolButton *MakeButton(const char *icon, const std::string &text, const QKeySequence &key,
                            const std::function<void()> &run);
    void UpdateButtons();

    CPreviewSheet *sheet_;
    QScrollArea *area_;
    QSpinBox *page_;
    QToolButton *previous_, *next_, *zoomOut_, *zoomIn_;
    int zoom_ = 0;  // 0: the whole sheet fits the window
};
