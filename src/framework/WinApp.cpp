#include "framework/WinApp.h"

#include <QApplication>

#include "framework/MDIChildWnd.h"
#include "framework/MDIFrameWnd.h"
#include "framework/View.h"
#include "platform/PathCalls.h"

namespace {
CWinApp *theApp = nullptr;
}

CWinApp::CWinApp() { theApp = this; }

CWinApp::~CWinApp() { theApp = nullptr; }

CWinApp *CWinApp::Get() { return theApp; }

int CWinApp::Run() {
    if (!InitInstance()) return 1;
    QApplication::exec();
    return ExitInstance();
}

void CWinApp::AddDocTemplate(std::unique_ptr<CDocTemplate> docTemplate) {
    templates_.push_back(std::move(docTemplate));
}

CDocument *CWinApp::OpenDocumentFile(const std::string &path) {
    const std::string full = GetFullPathNameA(path);
    CDocTemplate *best = nullptr;
    DocMatch bestMatch = DocMatch::none;
    for (const auto &docTemplate : templates_) {
        CDocument *open = nullptr;
        const DocMatch match = docTemplate->MatchDocType(full, open);
        if (open) {
            if (CView *view = open->GetFirstView()) view->GetParentFrame()->ActivateFrame();
            return open;
        }
        if (match > bestMatch) {
            best = docTemplate.get();
            bestMatch = match;
        }
    }
    return best ? best->OpenDocumentFile(full) : nullptr;
}

CDocument *CWinApp::NewDocument() { return templates_.empty() ? nullptr : templates_.front()->OpenDocumentFile(""); }

std::vector<CDocument *> CWinApp::GetDocuments() const {
    std::vector<CDocument *> documents;
    for (const auto &docTemplate : templates_)
        for (const auto &document : docTemplate->GetDocuments()) documents.push_back(document.get());
    return documents;
}

bool CWinApp::SaveAllModified() {
    for (const auto &docTemplate : templates_)
        if (!docTemplate->SaveAllModified()) return false;
    return true;
}

void CWinApp::CloseAllDocuments() {
    for (const auto &docTemplate : templates_) docTemplate->CloseAllDocuments();
}
