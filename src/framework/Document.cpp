#include "framework/Document.h"

#include <algorithm>

#include "framework/DocTemplate.h"
#include "framework/FileDialog.h"
#include "framework/MDIChildWnd.h"
#include "framework/MDIFrameWnd.h"
#include "framework/MessageBox.h"
#include "framework/Text.h"
#include "framework/View.h"
#include "framework/WinApp.h"
#include "platform/NativePath.h"

CDocument::CDocument() = default;

CDocument::~CDocument() {
    for (CView *view : views_) view->document_ = nullptr;
}

void CDocument::SetPathName(const std::string &path, bool addToRecent) {
    path_ = path;
    if (addToRecent) CWinApp::Get()->AddToRecentFileList(path);
}

void CDocument::SetTitle(const std::string &title) {
    title_ = title;
    for (CView *view : views_)
        if (CMDIChildWnd *frame = view->GetParentFrame()) frame->UpdateFrameTitle();
}

bool CDocument::OnNewDocument() {
    DeleteContents();
    path_.clear();
    SetModifiedFlag(false);
    return true;
}

bool CDocument::OnOpenDocument(const std::string &) {
    DeleteContents();
    SetModifiedFlag(false);
    return true;
}

void CDocument::OnCloseDocument() {
    const std::vector<CView *> views = views_;  // a frame that goes takes its view out of the list
    for (CView *view : views)
        if (CMDIChildWnd *frame = view->GetParentFrame()) frame->DestroyWithoutQuestion();
    DeleteContents();
    if (template_) template_->CloseDocument(this);
}

bool CDocument::SaveModified() {
    if (!IsModified()) return true;
    CWinApp *app = CWinApp::Get();
    const std::string name = path_.empty() ? title_ : DisplayPath(path_);
    switch (RunMessageBox(app->GetMainWnd(), app->BoxTitle(), app->SaveQuestion(name), BoxIcon::question,
                          BoxButtons::yesNoCancel)) {
        case IDYES: return DoFileSave();
        case IDNO: return true;
        default: return false;
    }
}

bool CDocument::DoFileSave() { return DoSave(path_); }

bool CDocument::DoSave(const std::string &path, bool replace) {
    std::string target = path;
    if (target.empty() && !AskForPath(target)) return false;
    if (!OnSaveDocument(target)) return false;
    if (replace && target != path_) SetPathName(target);
    return true;
}

bool CDocument::AskForPath(std::string &path) {
    CFileDialog dialog(CFileDialog::Kind::save);
    dialog.title = CWinApp::Get()->SaveAsTitle();
    const auto ownString = [this](DocString which) {
        return template_ ? template_->GetDocString(which) : std::string();
    };
    dialog.fileName = path_.empty() ? ownString(DocString::fileNewName) : path_;
    const std::string extension = ownString(DocString::filterExt);
    dialog.defaultExtension = extension.starts_with('.') ? extension.substr(1) : extension;
    for (const auto &docTemplate : CWinApp::Get()->GetTemplates()) {
        const std::string text = docTemplate->GetDocString(DocString::filterName);
        if (!text.empty()) dialog.filter += text + "|*" + docTemplate->GetDocString(DocString::filterExt) + "|";
        if (docTemplate.get() == template_)
            dialog.filterIndex = static_cast<int>(std::ranges::count(dialog.filter, '|')) / 2;
    }
    dialog.filter += CWinApp::Get()->AllFilesFilter();
    dialog.askBeforeOverwrite = true;
    if (!dialog.DoModal(CWinApp::Get()->GetMainWnd())) return false;
    path = dialog.paths.front();
    return true;
}

void CDocument::UpdateAllViews(CView *sender, intptr_t hint) {
    for (CView *view : std::vector(views_))
        if (view != sender) view->OnUpdate(sender, hint);
}

void CDocument::AddView(CView *view) {
    views_.push_back(view);
    view->document_ = this;
}

void CDocument::RemoveView(CView *view) {
    std::erase(views_, view);
    view->document_ = nullptr;
}
