// One source file held open in the editor. Its text lives in its views; the document is where the file meets the disk.
#pragma once

#include <string>
#include <vector>

#include "editor/FunctionData.h"
#include "editor/TrackingDoc.h"

class CIDEView;

class CIDEDoc : public CTrackingDoc {
public:
    CIDEDoc();

    void SetPathName(const std::string &path, bool addToRecent = true) override;
    void DeleteContents() override;
    bool OnNewDocument() override;  // with the toolsuite's first text
    bool OnOpenDocument(
        const std::string &path) override;  // false, with a line in the build list, for what can't be read
    bool OnSaveDocument(const std::string &path) override;  // false, with a box, when it can't be written

    // The modified flag and the star at the end of the title, together.
    void SetModifiedMark(bool modified);

    void ReloadFromDisk();  // in every view; what was unsaved is lost

    virtual std::string GetText() const;  // all bytes, from the first view

    std::vector<CIDEView *> GetCodeViews() const;
    CIDEView *GetFirstCodeView() const;  // null without a view

    // The file's functions in the order of the tag file.
    std::vector<CFunctionData> functions;
    void ClearFunctions() { functions.clear(); }

private:
    void SaveWithFramework(bool askForName);
    void ShowSavedSymbols(const std::string &path);
    bool WriteTextTo(const std::string &path, CIDEView &view);
    void RecolourAs(const std::string &path);
    std::string TrackedName(const std::string &path) const;
};
