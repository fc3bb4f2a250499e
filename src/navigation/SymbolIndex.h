// The index of the workspace's symbols.
#pragma once

#include <string>

class CIDEDoc;

// Main thread.
class CSymbolIndex {
public:
    // Builds the index of the open workspace anew; without a workspace it becomes empty.
    void UpdateBrowseInfo();

    // Lists the functions of one document anew.
    void UpdateDocumentFunctions(const std::string &path, CIDEDoc &document);
};
