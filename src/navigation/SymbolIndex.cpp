#include "navigation/SymbolIndex.h"

#include "editor/IDEDoc.h"

void CSymbolIndex::UpdateBrowseInfo() {}

void CSymbolIndex::UpdateDocumentFunctions(const std::string &, CIDEDoc &document) { document.ClearFunctions(); }
