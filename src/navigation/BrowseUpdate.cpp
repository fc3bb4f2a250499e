#include "navigation/BrowseUpdate.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "app/ProjectDirScope.h"
#include "platform/FileText.h"
#include "platform/NativePath.h"
#include "platform/TempFile.h"

namespace {

using namespace std::chrono_literals;

constexpr auto kPollTime = 15ms;
constexpr auto kPatience = 120s;        // with one run of the tag generator
constexpr size_t kTagsAtOnce = 10'000;  // some milliseconds' work

}  // namespace

CBrowseUpdate::CBrowseUpdate(BrowseFiles files, const CtagsLanguage &language, Finished finished)
    : files_(std::move(files)), language_(language), finished_(std::move(finished)) {
    toRead_.assign(files_.extraTags.rbegin(), files_.extraTags.rend());
    toRead_.push_back(files_.tags);
    timer_.setSingleShot(true);
    timer_.callOnTimeout([this] { (this->*step_)(); });
    Next(&CBrowseUpdate::StartTags);
}

CBrowseUpdate::~CBrowseUpdate() {
    if (finished_) DropFiles();
}

void CBrowseUpdate::DropFiles() {
    ctags_.reset();  // it would write them
    DeleteFileA(list_);
    DeleteFileA(files_.prototypes);
}

void CBrowseUpdate::Next(Step step) {
    step_ = step;
    timer_.start(ctags_ ? kPollTime : 0ms);
}

void CBrowseUpdate::Finish(Outcome outcome) {
    DropFiles();
    const Finished finished = std::exchange(finished_, nullptr);
    finished(outcome, maps_);
    Next(&CBrowseUpdate::ForgetMaps);
}

// To free a large index at once would hold the user up.
void CBrowseUpdate::ForgetMaps() {
    size_t left = kTagsAtOnce;
    const auto forget = [&left](auto &map) {
        const size_t count = std::min(left, map.size());
        map.erase(map.begin(), std::next(map.begin(), static_cast<std::ptrdiff_t>(count)));
        left -= count;
    };
    for (const SymbolCategory &category : kSymbolCategories) forget(maps_.*category.map);
    forget(maps_.Prototypes);
    if (left == 0) Next(&CBrowseUpdate::ForgetMaps);
}

bool CBrowseUpdate::Start(const char *kinds, const std::string &output, const char *numbering) {
    ctags_ = std::make_unique<CCtagsProcess>();
    started_ = std::chrono::steady_clock::now();
    const std::string arguments = std::string(numbering) + " -L \"" + ToNativePath(list_) + "\"";
    const ProjectDirScope scope(files_.project);
    return ctags_->Start(IndexCommandLine(language_.option, kinds, ToNativePath(output), arguments));
}

void CBrowseUpdate::StartTags() {
    list_ = WriteBrowseFileList(files_.project);
    MakeTagFolder(files_);
    if (!list_.empty() && Start(language_.indexKinds, files_.tags, "-n"))
        Await(&CBrowseUpdate::ReadTags);
    else
        Finish(Outcome::notStarted);
}

void CBrowseUpdate::Await(Step then) {
    then_ = then;
    Next(&CBrowseUpdate::AwaitCtags);
}

// What a run has left that is given up is read all the same: the symbols of before are better than none.
void CBrowseUpdate::AwaitCtags() {
    if (!ctags_->WaitForEnd(0ms)) {
        if (std::chrono::steady_clock::now() - started_ <= kPatience) {
            Next(&CBrowseUpdate::AwaitCtags);
            return;
        }
        outcome_ = Outcome::givenUp;
    }
    ctags_.reset();
    Next(then_);
}

void CBrowseUpdate::ReadTags() {
    if (!reader_) {
        text_ = ReadWholeFile(toRead_.back()).value_or(std::string());
        toRead_.pop_back();
        reader_ = std::make_unique<CTagReader>(text_, language_.language, maps_);
    }
    if (!reader_->Read(kTagsAtOnce)) reader_.reset();
    if (reader_ || !toRead_.empty())
        Next(&CBrowseUpdate::ReadTags);
    else
        Next(outcome_ == Outcome::read ? &CBrowseUpdate::StartPrototypes : &CBrowseUpdate::FinishReading);
}

void CBrowseUpdate::StartPrototypes() {
    text_ = {};
    if (Start(kPrototypeKinds, files_.prototypes, "-N"))
        Await(&CBrowseUpdate::ReadPrototypes);
    else
        FinishReading();
}

void CBrowseUpdate::ReadPrototypes() {
    if (!prototypeReader_) {
        text_ = ReadWholeFile(files_.prototypes).value_or(std::string());
        prototypeReader_ = std::make_unique<CPrototypeReader>(text_, maps_.Prototypes);
    }
    Next(prototypeReader_->Read(kTagsAtOnce) ? &CBrowseUpdate::ReadPrototypes : &CBrowseUpdate::FinishReading);
}

// In a turn of its own: showing the index is work enough for one.
void CBrowseUpdate::FinishReading() {
    Finish(outcome_);
}
