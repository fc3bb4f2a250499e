// The application: start, end, document templates, and what has no better place in the route of commands.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "framework/CmdTarget.h"
#include "framework/DocTemplate.h"

class CMDIFrameWnd;

// One per process. Main thread.
class CWinApp : public CCmdTarget {
public:
    CWinApp();
    ~CWinApp() override;

    virtual bool InitInstance() = 0;
    virtual int ExitInstance() { return 0; }
    int Run();  // InitInstance, the event loop, ExitInstance; the exit code

    CMDIFrameWnd *GetMainWnd() const { return mainWnd_; }
    const std::vector<std::unique_ptr<CDocTemplate>> &GetTemplates() const { return templates_; }
    void AddDocTemplate(std::unique_ptr<CDocTemplate> docTemplate);

    // Opens `path` with the best template, or brings the document to the top when it is open. Null on failure.
    virtual CDocument *OpenDocumentFile(const std::string &path);
    CDocument *NewDocument();  // by the first template

    std::vector<CDocument *> GetDocuments() const;  // of all templates
    bool SaveAllModified();                         // asks for each; false when the user cancelled
    void CloseAllDocuments();

    virtual void AddToRecentFileList(const std::string &path) {}
    virtual std::string UntitledName() const { return "Untitled"; }
    virtual std::string SaveQuestion(const std::string &name) const = 0;  // text of "save changes?"
    virtual std::string BoxTitle() const = 0;                             // title of that box
    virtual std::string SaveAsTitle() const { return {}; }                // of the save dialog; empty: its own
    virtual std::string AllFilesFilter() const { return "All Files|*.*|"; }

    static CWinApp *Get();  // null before construction

protected:
    CMDIFrameWnd *mainWnd_ = nullptr;

private:
    std::vector<std::unique_ptr<CDocTemplate>> templates_;
};
