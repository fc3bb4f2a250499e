// A compiler as the program knows it: one library's entry points.
#pragma once

#include <string>

#include "platform/SharedLibrary.h"
#include "project/ToolsuiteApi.h"

// Groups of entry points that a caller can ask for.
enum class ToolsuiteGroup { configure = 1, extraBrowse = 2, genMake = 3 };

// Shared by the table of toolsuites and the projects that use it. Entry points that the library lacks are null.
class CToolsuite {
public:
    // Loads the library of its own once more and resolves its entry points.
    CToolsuite(const std::string &libraryPath, std::string name);

    const std::string &GetName() const { return name_; }
    bool Has(ToolsuiteGroup group) const;

    ToolGetToolNameFn *getToolName = nullptr;
    ToolConfigureFn *configure = nullptr;
    ToolGetExtraBrowseFn *getExtraBrowse = nullptr;
    ToolTargetFn *target = nullptr;
    ToolIsValidTargetFn *isValidTarget = nullptr;
    ToolGetDefTargetFn *getDefTarget = nullptr;
    ToolSetDefTargetFn *setDefTarget = nullptr;
    ToolGetToolsNumberFn *getToolsNumber = nullptr;
    ToolSetActiveFn *setActive = nullptr;
    ToolGetActiveFn *getActive = nullptr;
    ToolGetToolActionNameFn *getToolActionName = nullptr;
    ToolGetQuickProjectFilterFn *getQuickProjectFilter = nullptr;
    ToolGetFilterNameFn *getFilterName = nullptr;
    ToolGetFilterExtFn *getFilterExt = nullptr;
    ToolGetHeaderExtFn *getHeaderExt = nullptr;
    ToolEmptyContentFn *emptyHdrContent = nullptr;
    ToolEmptyContentFn *emptySrcContent = nullptr;
    ToolGetFileOpenFilterFn *getFileOpenFilter = nullptr;
    ToolWizardSupportFn *wizardSupport = nullptr;
    ToolLoadedFn *loaded = nullptr;
    ToolGenMakeFn *genMake = nullptr;
    ToolGenMakeAttrFn *genMakeAttr = nullptr;
    ToolGetOutputFilesFn *getOutputFiles = nullptr;
    ToolGetToolCmdLineFn *getToolCmdLine = nullptr;
    ToolGetSysIncludeDirFn *getSysIncludeDir = nullptr;
    ToolGetDefOutputFilterFn *getDefOutputFilter = nullptr;
    ToolGetKeywordsFn *getKeywords = nullptr;
    ToolSupportedCodeWindowTypeFn *supportedCodeWindowType = nullptr;
    ToolPreprocessListingFn *preprocessListing = nullptr;

private:
    CSharedLibrary module_;
    std::string name_;
};
