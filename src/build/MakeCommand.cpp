#include "build/MakeCommand.h"

#include "app/PathNames.h"
#include "platform/PathCalls.h"
#include "platform/ProgramDirectory.h"

std::string FormMakeCommand(const std::string &programDirectory, const std::string &tool, const std::string &makefile,
                            const std::string &attributes, const std::string &arguments) {
    return QuoteToolPath(AddSlash(programDirectory) + tool, programDirectory) + " -c -f " + QuoteIfBlank(makefile) +
           " " + attributes + " " + arguments;
}

std::string MakeCommand(const std::string &makefile, const std::string &attributes, const std::string &arguments) {
    const char *tool = FileExists(ProgramFile("make.exe")) ? "make.exe" : "twmake.exe";
    return FormMakeCommand(ProgramDirectory(), tool, makefile, attributes, arguments);
}
