// A document template: which files are whose, and what is made for one.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "framework/CmdTarget.h"
#include "framework/Document.h"

class CMDIChildWnd;
class CView;

enum class DocMatch { none, foreign, native, alreadyOpen };
enum class DocString { windowTitle, docName, fileNewName, filterName, filterExt, regFileTypeId, regFileTypeName };

// Main thread. Owns its open documents.
class CDocTemplate : public CCmdTarget {
public:
    struct Parts {
        std::function<std::unique_ptr<CDocument>()> document;
        std::function<CMDIChildWnd *()> frame;  // a Qt object that the frame window's MDI area then owns
        std::function<CView *(CMDIChildWnd *)> view;
    };

    // `strings`: seven fields separated by line feeds, in the order of DocString.
    CDocTemplate(int resourceId, std::string strings, Parts parts);
    ~CDocTemplate() override;

    int GetResourceId() const { return resourceId_; }
    const std::vector<std::unique_ptr<CDocument>> &GetDocuments() const { return documents_; }

    virtual std::string GetDocString(DocString which) const;

    // How well `path` fits. `open` is set to a document that already has the path.
    virtual DocMatch MatchDocType(const std::string &path, CDocument *&open);

    // Makes document, frame and view and opens `path`, or a new empty document for an empty path. Null on failure.
    CDocument *OpenDocumentFile(const std::string &path);

    void CloseDocument(CDocument *document);  // destroys it; called by the document

    // Offers to save every modified document. False when the user cancelled.
    bool SaveAllModified();
    void CloseAllDocuments();

private:
    int resourceId_;
    std::string strings_;
    Parts parts_;
    int untitled_ = 0;  // number of the last new document
    std::vector<std::unique_ptr<CDocument>> documents_;
};
