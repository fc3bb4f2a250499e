#include "navigation/TodoList.h"

#include <algorithm>

#include "navigation/ProjectFiles.h"
#include "platform/FileText.h"
#include "platform/PathCalls.h"

void CTodoList::Begin(const std::string &projectFile, const std::string &singleFile) {
    ProjectFiles files = ReadProjectFiles(projectFile);
    directory_ = files.directory;
    if (projectFile.empty() || singleFile.empty()) {
        records_.clear();
        waiting_.assign(std::make_move_iterator(files.names.begin()), std::make_move_iterator(files.names.end()));
        return;
    }
    const std::string saved = FullNameFrom(directory_, singleFile);
    const auto isSaved = [&](const std::string &name) { return EqualNoCase(FullNameFrom(directory_, name), saved); };
    std::string file;  // of the last record: those of a file stand together
    bool drop = false;
    std::erase_if(records_, [&](const TodoRecord &record) {
        if (record.file != file) drop = isSaved(file = record.file);
        return drop;
    });
    for (std::string &name : files.names)
        if (isSaved(name) && std::ranges::find(waiting_, name) == waiting_.end()) waiting_.push_back(std::move(name));
}

bool CTodoList::Step(std::chrono::milliseconds limit) {
    const auto end = std::chrono::steady_clock::now() + limit;
    while (!waiting_.empty()) {
        const std::string file = std::move(waiting_.front());
        waiting_.pop_front();
        if (const auto text = ReadWholeFile(FullNameFrom(directory_, file))) ScanTodos(*text, file, records_);
        if (std::chrono::steady_clock::now() >= end) break;
    }
    return waiting_.empty();
}
