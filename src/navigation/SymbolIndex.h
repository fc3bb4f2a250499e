// The index of the workspace's symbols. Nothing feeds it: it is empty, and the calls mark the moments at which its
// content would be out of date.
#pragma once

#include <string>

class CIDEDoc;

// Main thread.
class CSymbolIndex {
public:
    // The workspace, its files or its toolsuite have changed.
    void UpdateBrowseInfo();

    // A document was opened or saved: its functions are no longer known.
    void UpdateDocumentFunctions(const std::string &path, CIDEDoc &document);
};
