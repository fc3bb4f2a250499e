// A project's makefile and the build step that runs it.
#include <cstdio>

#include "app/PathNames.h"
#include "app/StringIds.h"
#include "build/Message.h"
#include "build/TextPostProcessMessage.h"
#include "framework/Language.h"
#include "platform/NativePath.h"
#include "project/Project.h"
#include "project/Toolsuite.h"

namespace {

struct CloseFile {
    void operator()(FILE *file) const { std::fclose(file); }
};

}  // namespace

std::string CProject::GetMakefilePath() const {
    if (!activeConfig_) return {};
    std::string makefile = AddSlash(GetProjectDir()) + "makefile." + GetTitle();
    MakeRelativeToFile(GetFullPath(), makefile);
    return makefile;
}

bool CProject::WriteMakefile(const std::string &path, CStringList &outputs, std::string &error) {
    const std::unique_ptr<FILE, CloseFile> file(std::fopen(ToNativePath(path).c_str(), "w"));
    if (!file) {
        error = LoadText(IDS_MAKEFILE_CANT_OPEN, {DisplayPath(path)});
        return false;
    }
    std::fprintf(file.get(), "%s\n", LoadText(IDS_MAKEFILE_HEADER, {LoadText(IDS_VERSION)}).c_str());
    if (toolsuite_->genMake == nullptr) {
        error = LoadText(IDS_MAKE_NO_TOOLSUITE, {GetFileName()});
        return false;
    }
    CStringList sources = GetSourceFiles();
    const std::string project = GetFullPath(), config = GetActiveConfigFile();
    if (toolsuite_->genMake(&sources, &outputs, file.get(), &error, project.c_str(), config.c_str()) == 0) return false;
    if (std::fflush(file.get()) == 0 && std::ferror(file.get()) == 0) return true;
    error = LoadText(IDS_CANT_WRITE_FILE, {DisplayPath(path)});
    return false;
}

std::unique_ptr<CMessage> CProject::GenMake(std::string &error, bool clean) {
    if (!toolsuite_) {
        error = LoadText(IDS_MAKE_NO_TOOLSUITE, {GetFileName()});
        return nullptr;
    }
    const std::string makefile = GetMakefilePath();
    if (makefile.empty()) return nullptr;
    CStringList outputs;
    if (!WriteMakefile(AddSlash(GetProjectDir()) + makefile, outputs, error)) return nullptr;

    std::unique_ptr<CMessage> step;
    if (clean)
        step = std::make_unique<CTextPostProcessMessage>(GetFullPath(), -1);
    else
        step = std::make_unique<CMessage>(GetFullPath(), -1);
    step->outputFiles = std::move(outputs);
    return step;
}
