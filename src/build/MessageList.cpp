#include "build/MessageList.h"

#include "app/IDEApp.h"
#include "app/ProjectDirScope.h"
#include "app/StringIds.h"
#include "build/FileTracking.h"
#include "framework/Language.h"
#include "navigation/BuildViews.h"

bool CMessageList::StartNext() {
    if (steps_.empty()) return false;
    if (ExecuteHead()) return true;
    CIDEApp::Get().AddOutputLine(LoadText(IDS_NEXT_STEP_FAILED));
    Clear();
    return false;
}

bool CMessageList::ExecuteHead() {
    headStarted_ = true;  // before it may turn the event loop, with a box of the toolsuite's
    headStarted_ = steps_.front()->Execute();
    return headStarted_;
}

void CMessageList::Clear() {
    semaphore_.acquire();
    steps_.clear();
    headStarted_ = false;
    semaphore_.release();
}

void CMessageList::KeepHeadOnly() {
    if (steps_.size() > 1) steps_.erase(std::next(steps_.begin()), steps_.end());
}

void CMessageList::OnBuildLine(const std::string &text) { CIDEApp::Get().AddOutputLine(text); }

void CMessageList::OnOutputLine(const std::string &text) { CIDEApp::Get().AddOutputLine(text); }

void CMessageList::OnChildEnded() {
    CIDEApp &app = CIDEApp::Get();
    if (!steps_.empty()) {
        const std::unique_ptr<CMessage> ended = RemoveHead();
        const ProjectDirScope scope(ended->project);
        if (!ended->PostProcess()) {
            Clear();
            app.AddOutputLine(LoadText(IDS_BUILD_FAILED));
        }
    }
    if (!steps_.empty()) {
        if (ExecuteHead()) return;
        const std::string name = steps_.front()->GetName();
        Clear();
        app.AddOutputLine(LoadText(IDS_STEP_START_FAILED, {name}));
    }
    Finish();
}

std::unique_ptr<CMessage> CMessageList::RemoveHead() {
    std::unique_ptr<CMessage> head = std::move(steps_.front());
    steps_.pop_front();
    headStarted_ = false;
    return head;
}

void CMessageList::Finish() {
    CIDEApp::Get().build.LoadBuildToolBar(IDR_MAINFRAME);
    RefreshBuildViews();
    ArmOpenDocuments();
}
