#include "navigation/SymbolIndex.h"

#include <QTimer>
#include <array>
#include <chrono>
#include <filesystem>
#include <utility>

#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/ProjectDirScope.h"
#include "app/StringIds.h"
#include "editor/IDEDoc.h"
#include "framework/Language.h"
#include "framework/WaitCursor.h"
#include "navigation/BrowseFiles.h"
#include "navigation/BrowseUpdate.h"
#include "navigation/CtagsCommand.h"
#include "navigation/CtagsProcess.h"
#include "navigation/TagFile.h"
#include "navigation/WorkspaceBar.h"
#include "platform/FileText.h"
#include "platform/NativePath.h"
#include "platform/TempFile.h"
#include "project/Workspace.h"

namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds kPatience = 5s;  // with a tag generator that holds the user; doubled at each "no"
constexpr uintmax_t kLargestListed = 20'000'000;     // bytes; a larger document has no list of functions

// The order in which a name is looked for.
constexpr std::array<SymbolMap SymbolMaps::*, 6> kSearchOrder = {&SymbolMaps::Functions, &SymbolMaps::Variables,
                                                                 &SymbolMaps::Enums,     &SymbolMaps::Macros,
                                                                 &SymbolMaps::Typedefs,  &SymbolMaps::Containers};

const CtagsLanguage &ActiveLanguage() {
    const auto &workspace = CIDEApp::Get().workspace;
    return CtagsLanguageOf(workspace ? workspace->GetToolName() : std::string());
}

// A temporary file, for the life of the object.
class CTempFile {
public:
    explicit CTempFile(std::string path) : path_(std::move(path)) {}
    ~CTempFile() { DeleteFileA(path_); }
    CTempFile(const CTempFile &) = delete;
    CTempFile &operator=(const CTempFile &) = delete;
    const std::string &Path() const { return path_; }

private:
    std::string path_;
};

bool OffersEnd(std::chrono::milliseconds waited) {
    CMainFrame *frame = CIDEApp::Get().GetMainFrame();
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(waited).count();
    return !frame || frame->AskUser(LoadText(IDS_CTAGS_SLOW, {std::to_string(seconds)})) == IDYES;
}

int64_t Now() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::nanoseconds>(now).count();
}

}  // namespace

CSymbolIndex::CSymbolIndex() = default;

CSymbolIndex::~CSymbolIndex() = default;

void CSymbolIndex::UpdateBrowseInfo() {
    CIDEApp &app = CIDEApp::Get();
    CMainFrame *frame = app.GetMainFrame();
    if (waiting_) {  // a box that asks about the tag generator is open, and what it reads is out of date already
        again_ = true;
        return;
    }
    update_.reset();
    updating_ = true;
    do {
        again_ = false;
        maps_ = {};
        if (frame) UpdateNow(*frame);
    } while (again_);
    updating_ = false;
}

void CSymbolIndex::UpdateNow(CMainFrame &frame) {
    const std::string project = CIDEApp::Get().GetActiveProjectPath();
    if (project.empty()) {
        frame.WorkspaceBar().ClearBrowseTree();
        return;
    }
    readAt_ = Now();
    const ProjectDirScope scope(project);
    const std::string configuration = frame.GetProjectConfigName();
    if (configuration.empty()) return;
    const BrowseFiles files = BrowseFilesOf(project, configuration);
    const CTempFile prototypes(files.prototypes);
    const CtagsLanguage &language = ActiveLanguage();
    const CTempFile list(CreateBrowseFileList());
    if (list.Path().empty()) return;
    MakeTagFolder(files);
    const std::string listArgument = " -L \"" + ToNativePath(list.Path()) + "\"";
    if (!RunCtags(files.tags, language.indexKinds, "-n" + listArgument)) return;
    ParseTagFile(files.tags);
    for (const std::string &extra : files.extraTags) ParseTagFile(extra);
    frame.WorkspaceBar().RebuildBrowseTree();

    if (ended_) return;  // by the user, who doesn't want to wait for it once more
    if (RunCtags(files.prototypes, kPrototypeKinds, "-N" + listArgument)) ParsePrototypeFile(files.prototypes);
}

void CSymbolIndex::RequestUpdate() {
    CMainFrame *frame = CIDEApp::Get().GetMainFrame();
    const std::string project = CIDEApp::Get().GetActiveProjectPath();
    const std::string configuration = frame ? frame->GetProjectConfigName() : std::string();
    if (project.empty() || configuration.empty()) {
        UpdateBrowseInfo();
        return;
    }
    again_ = update_ != nullptr || waiting_;
    if (again_) return;
    const auto finished = [this](CBrowseUpdate::Outcome outcome, SymbolMaps &maps) {
        TakeOver(outcome, maps);
        finished_ = std::move(update_);  // it is still at work here, and then frees the maps of before
        if (again_) RequestUpdate();
    };
    requestedAt_ = Now();
    update_ = std::make_unique<CBrowseUpdate>(BrowseFilesOf(project, configuration), ActiveLanguage(), finished);
}

void CSymbolIndex::TakeOver(CBrowseUpdate::Outcome outcome, SymbolMaps &maps) {
    if (outcome == CBrowseUpdate::Outcome::givenUp) CIDEApp::Get().AddOutputLine(LoadText(IDS_CTAGS_ENDED));
    std::swap(maps_, maps);
    if (outcome == CBrowseUpdate::Outcome::notStarted) return;
    readAt_ = requestedAt_;
    if (CMainFrame *frame = CIDEApp::Get().GetMainFrame()) frame->WorkspaceBar().RebuildBrowseTree();
}

bool CSymbolIndex::RunCtags(const std::string &outputFile, const std::string &kinds, const std::string &arguments) {
    return Run(IndexCommandLine(ActiveLanguage().option, kinds, ToNativePath(outputFile), arguments));
}

bool CSymbolIndex::Run(const std::string &commandLine) {
    CCtagsProcess ctags;
    if (!ctags.Start(commandLine)) return false;
    const auto hasEnded = [&ctags](std::chrono::milliseconds limit) {
        const CWaitCursor cursor;
        return ctags.WaitForEnd(limit);
    };
    ended_ = false;
    const bool nested = std::exchange(waiting_, true);
    std::chrono::milliseconds waited = 0ms;
    for (auto limit = kPatience; !hasEnded(limit); limit *= 2) {
        waited += limit;
        if (!OffersEnd(waited)) continue;
        if (ctags.WaitForEnd(0ms)) break;  // while the user was thinking
        ctags.Kill();
        ended_ = true;
        CIDEApp::Get().AddOutputLine(LoadText(IDS_CTAGS_ENDED));
        break;
    }
    waiting_ = nested;
    if (again_ && !waiting_ && !updating_ && !update_) RequestUpdate();
    return true;
}

std::string CSymbolIndex::CreateBrowseFileList() const {
    return WriteBrowseFileList(CIDEApp::Get().GetActiveProjectPath());
}

void CSymbolIndex::ParseTagFile(const std::string &path) {
    if (const auto text = ReadWholeFile(path)) ParseTags(*text, ActiveLanguage().language, maps_);
}

void CSymbolIndex::ParsePrototypeFile(const std::string &path) {
    if (const auto text = ReadWholeFile(path)) ParsePrototypes(*text, maps_.Prototypes);
}

std::optional<BrowseRecord> CSymbolIndex::FindBrowseRecord(const std::string &name) const {
    for (const auto member : kSearchOrder) {
        const SymbolMap &map = maps_.*member;
        if (const auto found = map.find(name); found != map.end()) return found->second;
    }
    return {};
}

void CSymbolIndex::CollectBrowseNames(std::string_view prefix, std::list<std::string> &names) const {
    for (const auto member : kSearchOrder) {
        const SymbolMap &map = maps_.*member;
        for (auto each = map.lower_bound(std::string(prefix)); each != map.end(); ++each) {
            if (!each->first.starts_with(prefix)) break;
            names.push_back(each->first);
        }
    }
}

void CSymbolIndex::UpdateDocumentFunctions(const std::string &path, CIDEDoc &document) {
    document.ClearFunctions();
    std::error_code error;
    const std::string source = ToNativePath(path);
    if (std::filesystem::file_size(source, error) > kLargestListed || error) return;
    const CTempFile tags(MakeTempFile("ant"));
    if (tags.Path().empty() || !Run(DocumentCommandLine(ActiveLanguage(), ToNativePath(tags.Path()), source))) return;
    const std::string text = ReadWholeFile(tags.Path()).value_or(std::string());
    for (TagLine &tag : ParseFunctionTags(text)) {
        CFunctionData &function = document.functions.emplace_back();
        function.name = std::move(tag.name);
        function.line = tag.line;
    }
}
