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

CAboutDlg::CAboutDlg(QWidget *parent) : QDialog(parent) {
    std::string title = LoadText(IDS_DIALOG_ABOUT);
    if (const auto &workspace = CIDEApp::Get().workspace) title += " (" + workspace->GetCompilerName("") + ")";
    setWindowTitle(ToQString(title));

    auto *icon = new QLabel;
    icon->setPixmap(LoadIcon("app").pixmap(QSize(64, 64), devicePixelRatio()));
    icon->setAlignment(Qt::AlignTop);

    auto *version = new QLabel(ToQString("Thornwell IDE Version " + LoadText(IDS_VERSION)));
    QFont bold = version->font();
    bold.setBold(true);
    bold.setPointSizeF(bold.pointSizeF() * 1.3);
    version->setFont(bold);
    auto *words = new QLabel(ToQString(LoadText(IDS_ABOUT_TEXT)));
    words->setWordWrap(true);
    words->setMinimumWidth(360);

    auto *text = new QVBoxLayout;
    text->addWidget(version);
    text->addWidget(words, 1);
    auto *top = new QHBoxLayout;
    top->setSpacing(16);
    top->addWidget(icon);
    top->addLayout(text, 1);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    auto *column = new QVBoxLayout(this);
    column->addLayout(top);
    column->addWidget(buttons);
    column->setSizeConstraint(QLayout::SetFixedSize);
}
