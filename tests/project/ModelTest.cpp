#include "ModelTest.h"

#include "platform/ProgramDirectory.h"
#include "project/CurrentWorkspace.h"
#include "project/ToolsuiteTable.h"
#include "project/Workspace.h"

ModelTest::ModelTest() : library_(ProgramFile("recorder.dll")) {
    DiscoverToolsuites();
    recorder_ = library_.Get<RecorderGetStateFn>("recorderState")();
    *recorder_ = {};
}

ModelTest::~ModelTest() {
    CurrentWorkspace().reset();
    FreeToolsuites();
}

std::string ModelTest::WriteProject(const std::string &name, const std::string &files, const std::string &settings) {
    std::string text = "[Settings]\r\nActive Compiler=Recorder\r\n" + settings;
    if (!files.empty()) text += "[Files]\r\n" + files;
    Write(name, text);
    return Path(name);
}
