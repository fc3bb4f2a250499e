#include "framework/DocTemplate.h"

#include <algorithm>

#include "framework/MDIChildWnd.h"
#include "framework/MDIFrameWnd.h"
#include "framework/Text.h"
#include "framework/View.h"
#include "framework/WinApp.h"
#include "platform/NativePath.h"
#include "platform/PathCalls.h"

CDocTemplate::CDocTemplate(int resourceId, std::string strings, Parts parts)
    : resourceId_(resourceId), strings_(std::move(strings)), parts_(std::move(parts)) {}

CDocTemplate::~CDocTemplate() = default;

std::string CDocTemplate::GetDocString(DocString which) const {
    std::string_view rest = strings_;
    for (int field = 0; field < static_cast<int>(which); ++field) {
        const size_t end = rest.find('\n');
        if (end == std::string_view::npos) return {};
        rest.remove_prefix(end + 1);
    }
    return std::string(rest.substr(0, rest.find('\n')));
}

DocMatch CDocTemplate::MatchDocType(const std::string &path, CDocument *&open) {
    for (const auto &document : documents_) {
        if (NamesOneFile(document->GetPathName(), path)) {
            open = document.get();
            return DocMatch::alreadyOpen;
        }
    }
    const std::string extension = CDocTemplate::GetDocString(DocString::filterExt);
    return !extension.empty() && EqualNoCase(_splitpath(path).extension, extension) ? DocMatch::native
                                                                                    : DocMatch::foreign;
}

CDocument *CDocTemplate::OpenDocumentFile(const std::string &path) {
    CDocument *document = documents_.emplace_back(parts_.document()).get();
    document->template_ = this;

    CMDIChildWnd *frame = parts_.frame();
    CView *view = parts_.view(frame);
    document->AddView(view);
    frame->SetActiveView(view);

    bool opened;
    if (path.empty()) {
        document->SetTitle(CWinApp::Get()->UntitledName() + std::to_string(++untitled_));
        opened = document->OnNewDocument();
    } else {
        opened = document->OnOpenDocument(path);
        if (opened) document->SetPathName(path);
    }
    if (!opened) {
        document->RemoveView(view);
        delete frame;
        std::erase_if(documents_, [&](const auto &each) { return each.get() == document; });
        return nullptr;
    }
    CWinApp::Get()->GetMainWnd()->AddChild(frame);
    view->OnInitialUpdate();
    frame->UpdateFrameTitle();
    frame->ActivateFrame();
    return document;
}

void CDocTemplate::CloseDocument(CDocument *document) {
    std::erase_if(documents_, [&](const auto &each) { return each.get() == document; });
}

bool CDocTemplate::SaveAllModified() {
    return std::ranges::all_of(documents_, [](const auto &document) { return document->SaveModified(); });
}

void CDocTemplate::CloseAllDocuments() {
    while (!documents_.empty()) documents_.back()->OnCloseDocument();
}
