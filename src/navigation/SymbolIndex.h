// The index of the active project's symbols: what the tag generator finds in the project's files, in the system's
// headers and in the user's extra locations.
#pragma once

#include <cstdint>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "navigation/BrowseUpdate.h"
#include "navigation/SymbolMaps.h"

class CIDEDoc;
class CMainFrame;

// Main thread. Paths are in the Windows form.
class CSymbolIndex {
public:
    CSymbolIndex();
    ~CSymbolIndex();

    const SymbolMaps &Maps() const { return maps_; }
    SymbolMaps &Maps() { return maps_; }  // for the browse tree, which notes its rows in the records

    // Builds the index and the browse tree anew, with the tag generator's help, and returns when that is done. A tag
    // generator that takes long is ended when the user wants it to be. Empty without a project.
    void UpdateBrowseInfo();

    // The same behind the user's back, for what happens often: the old index serves until the new one is there.
    void RequestUpdate();
    bool IsUpdating() const { return update_ != nullptr; }
    bool IsOlderThan(int64_t time) const { return readAt_ < time; }  // nanoseconds since 1970

    // Runs the tag generator on `arguments` for symbols of `kinds` and waits for its end. False when it can't start.
    bool RunCtags(const std::string &outputFile, const std::string &kinds, const std::string &arguments);

    // The list of all files to read, one native name a line. The caller deletes it. Empty when it can't be written.
    std::string CreateBrowseFileList() const;

    // Adds what a file holds; a file that can't be read adds nothing.
    void ParseTagFile(const std::string &path);
    void ParsePrototypeFile(const std::string &path);

    // Looks through functions, variables, enums, macros, typedefs, containers: the first of that name.
    std::optional<BrowseRecord> FindBrowseRecord(const std::string &name) const;

    // Appends the names that begin with `prefix`, category by category in the same order; a name of several categories
    // comes several times.
    void CollectBrowseNames(std::string_view prefix, std::list<std::string> &names) const;

    // A document was opened or saved: lists its functions anew.
    void UpdateDocumentFunctions(const std::string &path, CIDEDoc &document);

private:
    void UpdateNow(CMainFrame &frame);
    void TakeOver(CBrowseUpdate::Outcome outcome, SymbolMaps &maps);
    bool Run(const std::string &commandLine);  // as RunCtags

    SymbolMaps maps_;
    std::unique_ptr<CBrowseUpdate> update_;    // null while none runs behind the user's back
    std::unique_ptr<CBrowseUpdate> finished_;  // the last one
    int64_t readAt_ = 0, requestedAt_ = 0;  // when the files of the index, and of the present update, began to be read
    bool waiting_ = false;                  // for the tag generator
    bool updating_ = false;                 // while the caller waits for it
    bool ended_ = false;                    // the last run, by the user
    bool again_ = false;                    // what the present update reads is out of date
};
