#include "project/Toolsuite.h"

CToolsuite::CToolsuite(const std::string &libraryPath, std::string name)
    : module_(libraryPath), name_(std::move(name)) {
    const auto resolve = [this]<typename Function>(Function *&entry, const char *symbol) {
        entry = module_.Get<Function>(symbol);
    };
    resolve(getToolName, "toolGetToolName");
    resolve(configure, "toolConfigure");
    resolve(getExtraBrowse, "toolGetExtraBrowse");
    resolve(target, "toolTarget");
    resolve(isValidTarget, "toolIsValidTarget");
    resolve(getDefTarget, "toolGetDefTarget");
    resolve(setDefTarget, "toolSetDefTarget");
    resolve(getToolsNumber, "toolGetToolsNumber");
    resolve(setActive, "toolSetActive");
    resolve(getActive, "toolGetActive");
    resolve(getToolActionName, "toolGetToolActionName");
    resolve(getQuickProjectFilter, "toolGetQuickProjectFilter");
    resolve(getFilterName, "toolGetFilterName");
    resolve(getFilterExt, "toolGetFilterExt");
    resolve(getHeaderExt, "toolGetHeaderExt");
    resolve(emptyHdrContent, "toolEmptyHdrContent");
    resolve(emptySrcContent, "toolEmptySrcContent");
    resolve(getFileOpenFilter, "toolGetFileOpenFilter");
    resolve(wizardSupport, "toolWizardSupport");
    resolve(loaded, "toolLoaded");
    resolve(genMake, "toolGenMake");
    resolve(genMakeAttr, "toolGenMakeAttr");
    resolve(getOutputFiles, "toolGetOutputFiles");
    resolve(getToolCmdLine, "toolGetToolCmdLine");
    resolve(getSysIncludeDir, "toolGetSysIncludeDir");
    resolve(getDefOutputFilter, "toolGetDefOutputFilter");
    resolve(getKeywords, "toolGetKeywords");
    resolve(supportedCodeWindowType, "toolSupportedCodeWindowType");
    resolve(preprocessListing, "toolPreprocessListing");
}

bool CToolsuite::Has(ToolsuiteGroup group) const {
    switch (group) {
        case ToolsuiteGroup::configure:
            return configure != nullptr;
        case ToolsuiteGroup::extraBrowse:
            return getExtraBrowse != nullptr;
        case ToolsuiteGroup::genMake:
            return genMake != nullptr;
    }
    return false;
}
