#include "ProgramTest.h"

#include <QAction>
#include <QMenu>
#include <algorithm>

#include "editor/IDEDoc.h"
#include "editor/IDEView.h"
#include "editor/ScintillaMessages.h"
#include "framework/Text.h"

void ProgramTest::Make(std::vector<std::string> arguments) {
    End();
    program = std::make_unique<CProgram>(scratch, std::move(arguments));
}

CProgram &ProgramTest::Start(std::vector<std::string> arguments) {
    Make(std::move(arguments));
    EXPECT_TRUE(program->Start());
    program->Settle();
    return *program;
}

void ProgramTest::End() {
    if (!program) return;
    for (const std::string &box : program->Unexpected()) ADD_FAILURE() << "unexpected: " << box;
    EXPECT_EQ(program->AnswersLeft(), 0u);
    program.reset();
}

void ProgramTest::CloseAndEnd() {
    EXPECT_TRUE(program->Close());
    End();
}

std::string ProgramTest::Title() {
    return FromQString(Frame().windowTitle());
}

std::string ProgramTest::Setting(const std::string &section, const std::string &key) {
    return Store().ReadString(section, key).value_or("(none)");
}

int ProgramTest::SettingNumber(const std::string &section, const std::string &key, int fallback) {
    return Store().ReadInt(section, key).value_or(fallback);
}

void ProgramTest::Set(const std::string &section, const std::string &key, const std::string &value) {
    ASSERT_TRUE(Store().WriteString(section, key, value));
}

void ProgramTest::Set(const std::string &section, const std::string &key, int value) {
    ASSERT_TRUE(Store().WriteInt(section, key, value));
}

std::string ProgramTest::Line(int id, std::initializer_list<std::string> values) {
    const std::string text = LoadText(id, values);
    if (text.starts_with("!E")) return "Error" + text.substr(2);
    return text.starts_with("!W") ? "Warning" + text.substr(2) : text;
}

bool ProgramTest::Says(const std::string &line) {
    return std::ranges::count(program->BuildLines(), line) > 0;
}

CIDEDoc *ProgramTest::Open(const std::string &name) {
    auto *document = dynamic_cast<CIDEDoc *>(App().OpenDocumentFile(scratch.Windows(name)));
    program->Settle();
    return document;
}

CIDEView &ProgramTest::ViewOf(CIDEDoc *document) {
    return *document->GetFirstCodeView();
}

void ProgramTest::Edit(CIDEDoc *document, const std::string &text) {
    ViewOf(document).SendText(SCI_INSERTTEXT, 0, text.c_str());
    program->Settle();
    EXPECT_TRUE(document->IsModified());
}

QMenu *ProgramTest::OpenMenu(const std::string &title) {
    for (QMenu *menu : Frame().findChildren<QMenu *>()) {
        if (menu->title() != ToQString(title)) continue;
        emit menu->aboutToShow();
        return menu;
    }
    return nullptr;
}

std::vector<std::string> ProgramTest::Texts(const QMenu *menu) {
    std::vector<std::string> texts;
    for (const QAction *action : menu->actions())
        if (!action->isSeparator()) texts.push_back(FromQString(action->text()));
    return texts;
}
