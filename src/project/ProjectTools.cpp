// A project's calls into its toolsuite: each tests that the entry point is there and fills in the project's paths.
#include <algorithm>

#include "project/Project.h"
#include "project/Toolsuite.h"

namespace {

constexpr size_t kBrowseBuffer = 1024;  // bytes; the contract promises 260
constexpr size_t kFilterBuffer = 4096;  // bytes; the contract promises 1024

std::string TextResult(const char *text) {
    return text != nullptr ? text : "";
}

template <class Function, class... Arguments>
std::string AskText(Function *entry, Arguments... arguments) {
    return entry != nullptr ? TextResult(entry(arguments...)) : "";
}

}  // namespace

bool CProject::HasToolGroup(int group) const {
    return toolsuite_ && toolsuite_->Has(static_cast<ToolsuiteGroup>(group));
}

bool CProject::Configure(QWidget *parent, QWidget **pages, int pageCount) {
    if (!toolsuite_ || toolsuite_->configure == nullptr) return false;
    return toolsuite_->configure(GetFullPath().c_str(), GetActiveConfigFile().c_str(), parent, pages, pageCount) != 0;
}

int CProject::GetExtraBrowseCount() {
    if (!toolsuite_ || toolsuite_->getExtraBrowse == nullptr) return 0;
    return std::max(0, toolsuite_->getExtraBrowse(GetFullPath().c_str(), -1, nullptr));
}

std::string CProject::GetExtraBrowse(int index) {
    if (!toolsuite_ || toolsuite_->getExtraBrowse == nullptr || index < 0) return {};
    char buffer[kBrowseBuffer] = {};
    const bool found = toolsuite_->getExtraBrowse(GetFullPath().c_str(), index, buffer) != 0;
    buffer[kBrowseBuffer - 1] = '\0';
    return found ? buffer : "";
}

int CProject::SelectTarget(QWidget *parent, std::string &target) {
    constexpr int kNoChange = 2;
    if (!toolsuite_ || toolsuite_->target == nullptr) return kNoChange;
    return toolsuite_->target(GetFullPath().c_str(), parent, &target);
}

bool CProject::IsValidTarget(const std::string &target) {
    if (!toolsuite_ || toolsuite_->isValidTarget == nullptr) return false;
    return toolsuite_->isValidTarget(GetFullPath().c_str(), target.c_str()) != 0;
}

std::string CProject::GetDefaultTarget() const {
    CString scratch;
    const std::string target = toolsuite_ ? AskText(toolsuite_->getDefTarget, GetFullPath().c_str(), &scratch) : "";
    return target.empty() ? kFallbackTarget : target;
}

int CProject::GetToolsNumber() {
    if (!toolsuite_ || toolsuite_->getToolsNumber == nullptr) return 0;
    return std::max<int>(0, toolsuite_->getToolsNumber());
}

void CProject::SetToolActive(int step, bool active, bool changing) {
    if (!toolsuite_ || toolsuite_->setActive == nullptr) return;
    toolsuite_->setActive(step, active ? 1 : 0, changing ? 1 : 0, GetFullPath().c_str());
}

bool CProject::IsToolActive(int step) {
    if (!toolsuite_ || toolsuite_->getActive == nullptr) return false;
    return toolsuite_->getActive(step, GetFullPath().c_str()) != 0;
}

std::string CProject::GetToolActionName(int step) {
    return toolsuite_ ? AskText(toolsuite_->getToolActionName, step) : "";
}

std::string CProject::GetQuickProjectFilter() {
    return toolsuite_ ? AskText(toolsuite_->getQuickProjectFilter) : "";
}

std::string CProject::GetFilterName() {
    return toolsuite_ ? AskText(toolsuite_->getFilterName) : "";
}

std::string CProject::GetFilterExt() {
    return toolsuite_ ? AskText(toolsuite_->getFilterExt) : "";
}

std::string CProject::GetHeaderExt() {
    return toolsuite_ ? AskText(toolsuite_->getHeaderExt) : "";
}

std::string CProject::EmptyHdrContent(const std::string &title) {
    return toolsuite_ ? AskText(toolsuite_->emptyHdrContent, title.c_str()) : "";
}

std::string CProject::EmptySrcContent(const std::string &title) {
    return toolsuite_ ? AskText(toolsuite_->emptySrcContent, title.c_str()) : "";
}

std::string CProject::GetFileOpenFilter() {
    return toolsuite_ ? AskText(toolsuite_->getFileOpenFilter) : "";
}

bool CProject::WizardSupport(std::string &library) {
    return toolsuite_ && toolsuite_->wizardSupport != nullptr && toolsuite_->wizardSupport(&library) != 0;
}

void CProject::ToolLoaded() {
    if (toolsuite_ && toolsuite_->loaded != nullptr) toolsuite_->loaded();
}

std::string CProject::GenMakeAttr() {
    if (!toolsuite_ || toolsuite_->genMakeAttr == nullptr) return {};
    CString arguments;
    return toolsuite_->genMakeAttr(&arguments, GetFullPath().c_str()) != 0 ? arguments : "";
}

bool CProject::GetOutputFiles(int step, CStringList &files) {
    if (!toolsuite_ || toolsuite_->getOutputFiles == nullptr) return false;
    return toolsuite_->getOutputFiles(step, &files, GetFullPath().c_str(), GetActiveConfigFile().c_str()) != 0;
}

bool CProject::GetToolCmdLine(int step, ToolCommand &command) {
    if (!toolsuite_ || toolsuite_->getToolCmdLine == nullptr) return false;
    return toolsuite_->getToolCmdLine(step, &command.command, &command.logFile, &command.title, &command.inputs,
                                      &command.outputs, &command.further, &command.extra, GetFullPath().c_str(),
                                      GetActiveConfigFile().c_str()) != 0;
}

std::string CProject::GetDefOutputFilter() {
    if (!toolsuite_ || toolsuite_->getDefOutputFilter == nullptr) return {};
    char buffer[kFilterBuffer] = {};
    toolsuite_->getDefOutputFilter(buffer, GetFullPath().c_str());
    buffer[kFilterBuffer - 1] = '\0';
    return buffer;
}

bool CProject::GetKeywords(int kind, std::string &keywords) {
    return toolsuite_ && toolsuite_->getKeywords != nullptr && toolsuite_->getKeywords(kind, &keywords) != 0;
}

bool CProject::SupportedCodeWindowType(int type) {
    return toolsuite_ && toolsuite_->supportedCodeWindowType != nullptr &&
           toolsuite_->supportedCodeWindowType(type) != 0;
}

void CProject::PreprocessListing(CStringList &sources) {
    if (toolsuite_ && toolsuite_->preprocessListing != nullptr)
        toolsuite_->preprocessListing(GetFullPath().c_str(), &sources);
}
