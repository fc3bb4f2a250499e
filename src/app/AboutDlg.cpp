#include "app/AboutDlg.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "app/IDEApp.h"
#include "app/StringIds.h"
#include "framework/Icons.h"
#include "framework/Language.h"
#include "framework/Text.h"
#include "project/Workspace.h"

namespace {

constexpr int kIconSize = 64;
constexpr int kTextTop = 24;   // the icon stands at the height of the text, half as far from the left edge
constexpr int kCharacters = 60;  // width of a line

QLabel *MakeWords(const std::string &text) {
    auto *words = new QLabel(ToQString(text));
    words->setTextFormat(Qt::PlainText);
    words->setWordWrap(true);
    words->setTextInteractionFlags(Qt::TextSelectableByMouse);
    words->setFixedWidth(words->fontMetrics().averageCharWidth() * kCharacters);
    return words;
}

}  // namespace

CAboutDlg::CAboutDlg(QWidget *parent) : QDialog(parent) {
    std::string title = LoadText(IDS_DIALOG_ABOUT);
    if (const auto &workspace = CIDEApp::Get().workspace) title += " (" + workspace->GetCompilerName("") + ")";
    setWindowTitle(ToQString(title));

    auto *icon = new QLabel;
    icon->setPixmap(LoadIcon("app").pixmap(QSize(kIconSize, kIconSize), devicePixelRatio()));
    auto *version = MakeWords("Thornwell IDE Version " + LoadText(IDS_VERSION));
    QFont large = version->font();
    large.setBold(true);
    large.setPointSizeF(large.pointSizeF() * 1.4);
    version->setFont(large);
    auto *credits = MakeWords(LoadText(IDS_ABOUT_CREDITS, {qVersion()}));

    auto *text = new QVBoxLayout;
    text->setSpacing(12);
    text->addWidget(version);
    text->addWidget(MakeWords(LoadText(IDS_ABOUT_TEXT)));
    text->addWidget(credits);
    auto *top = new QHBoxLayout;
    top->setSpacing(18);
    top->addWidget(icon, 0, Qt::AlignTop);
    top->addLayout(text, 1);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(kTextTop / 2, kTextTop, kTextTop / 2, kTextTop / 2);
    column->setSpacing(16);
    column->addLayout(top);
    column->addWidget(buttons);
    column->setSizeConstraint(QLayout::SetFixedSize);
}
