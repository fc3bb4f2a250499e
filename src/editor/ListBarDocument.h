// The empty document of a view in the listing bar that shows no source.
#pragma once

#include "framework/Document.h"

class CListBarDocument : public CDocument {
public:
    bool OnSaveDocument(const std::string &) override { return false; }  // there is nothing to save
};
