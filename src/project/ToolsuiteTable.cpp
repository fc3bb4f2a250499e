#include "project/ToolsuiteTable.h"

#include <boost/make_shared.hpp>

#include "platform/FileFind.h"
#include "platform/PathCalls.h"
#include "platform/ProgramDirectory.h"
#include "project/Toolsuite.h"

namespace {

ToolsuiteTable &Table() {
    static ToolsuiteTable table;
    return table;
}

}  // namespace

void ScanToolsuites(const std::function<void(const CSharedLibrary &library, const std::string &name)> &found) {
    for (const FoundFile &file : FindFiles(ProgramFile("*.dll"))) {
        if ((file.attributes & kFileAttributeDirectory) != 0) continue;
        const CSharedLibrary library(ProgramFile(file.name));
        const auto getName = library.Get<ToolGetToolNameFn>("toolGetToolName");
        CString name;
        if (getName != nullptr && getName(&name) != 0) found(library, name);
    }
}

void DiscoverToolsuites() {
    ToolsuiteTable table;
    ScanToolsuites([&table](const CSharedLibrary &library, const std::string &name) {
        table[name] = boost::make_shared<CToolsuite>(library.Path(), name);
    });
    Table() = std::move(table);
}

void FreeToolsuites() {
    Table().clear();
}

const ToolsuiteTable &GetToolsuiteTable() {
    return Table();
}

boost::shared_ptr<CToolsuite> FindToolsuite(const std::string &name) {
    const auto found = Table().find(name);
    return found != Table().end() ? found->second : nullptr;
}
