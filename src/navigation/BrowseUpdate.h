// An update of the symbol index that lets the program go on meanwhile.
#pragma once

#include <QTimer>
#include <chrono>
#include <functional>
#include <memory>
#include <string>

#include "navigation/BrowseFiles.h"
#include "navigation/CtagsCommand.h"
#include "navigation/CtagsProcess.h"
#include "navigation/TagFile.h"

// Reads into maps of its own, in slices of a few milliseconds between which the event loop turns. A run of the tag
// generator that doesn't come to an end is given up. Going away early it leaves nothing behind. What it has been left
// with when it has finished it frees in slices as well, as long as it lives. Main thread.
class CBrowseUpdate {
public:
    enum class Outcome { read, notStarted, givenUp };
    using Finished = std::function<void(Outcome, SymbolMaps &)>;  // takes or swaps the maps; mustn't delete the update

    CBrowseUpdate(BrowseFiles files, const CtagsLanguage &language, Finished finished);
    ~CBrowseUpdate();

private:
    using Step = void (CBrowseUpdate::*)();
    void Next(Step step);
    void Finish(Outcome outcome);
    void DropFiles();
    bool Start(const char *kinds, const std::string &output, const char *numbering);
    void Await(Step then);  // the end of the present run

    void StartTags();
    void AwaitCtags();
    void ReadTags();
    void StartPrototypes();
    void ReadPrototypes();
    void FinishReading();
    void ForgetMaps();

    BrowseFiles files_;
    const CtagsLanguage &language_;
    Finished finished_;
    std::string list_;
    std::unique_ptr<CCtagsProcess> ctags_;
    std::chrono::steady_clock::time_point started_;  // of the present run
    std::vector<std::string> toRead_;                // tag files, the next one last
    std::string text_;
    std::unique_ptr<CTagReader> reader_;
    std::unique_ptr<CPrototypeReader> prototypeReader_;
    SymbolMaps maps_;
    QTimer timer_;
    Step step_ = nullptr;
    Step then_ = nullptr;  // behind the present run
    Outcome outcome_ = Outcome::read;
};
