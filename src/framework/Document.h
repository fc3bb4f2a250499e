// A document: one file held open, and the list of its views.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "framework/CmdTarget.h"

class CDocTemplate;
class CView;

// Made and owned by its template (from CreateNewDocument to OnCloseDocument), or by whoever made it outside all
// templates. Paths are in the Windows form. Main thread.
class CDocument : public CCmdTarget {
public:
    CDocument();
    ~CDocument() override;

    const std::string &GetPathName() const { return path_; }  // empty until first saved
    const std::string &GetTitle() const { return title_; }
    CDocTemplate *GetDocTemplate() const { return template_; }
    const std::vector<CView *> &GetViews() const { return views_; }
    CView *GetFirstView() const { return views_.empty() ? nullptr : views_.front(); }

    virtual void SetPathName(const std::string &path, bool addToRecent = true);
    virtual void SetTitle(const std::string &title);  // shows in the frames of all views
    virtual bool IsModified() const { return modified_; }
    virtual void SetModifiedFlag(bool modified = true) { modified_ = modified; }

    virtual void DeleteContents() {}
    virtual bool OnNewDocument();
    virtual bool OnOpenDocument(const std::string &path);
    virtual bool OnSaveDocument(const std::string &path) = 0;
    virtual void OnCloseDocument();  // closes all frames of the document; its template destroys it

    // Offers to save a modified document. False when the user cancelled or the save failed.
    virtual bool SaveModified();

    bool DoFileSave();                                       // under its path; asks for one when it has none
    bool DoSave(const std::string &path, bool replace = true);  // empty path: asks; replace: takes the path over

    void UpdateAllViews(CView *sender, intptr_t hint = 0);

    void AddView(CView *view);     // called by the view
    void RemoveView(CView *view);  // called by the view

protected:
    // The name that Save As offers for a document without a path, and its dialog.
    virtual bool AskForPath(std::string &path);

private:
    friend class CDocTemplate;
    CDocTemplate *template_ = nullptr;
    std::string path_, title_;
    bool modified_ = false;
    std::vector<CView *> views_;
};
