// A project in a directory of its own, built through the real module, the real make and the real utilities.
#pragma once

#include <string>
#include <vector>

#include "platform/SharedLibrary.h"
#include "platform/SharedTypes.h"
#include "project/ToolsuiteApi.h"

// The loaded toolsuite; one for all tests.
const CSharedLibrary &Module();

template <typename Function>
Function *Export(const char *name) {
    return Module().Get<Function>(name);
}

std::string RunShell(const std::string &command, int *exitCode = nullptr);  // its output and errors

class CScratchProject {
public:
    explicit CScratchProject(const std::string &title = "demo", const std::string &target = "PIC16F628A");
    ~CScratchProject();

    std::string Path(const std::string &name) const { return directory_ + "/" + name; }  // native
    void Write(const std::string &name, const std::string &text);  // a file that is newer than all before
    std::string Read(const std::string &name) const;
    bool Has(const std::string &name) const;
    void Remove(const std::string &name);
    void CopyFrom(const std::string &nativeDirectory);  // files only
    void SetOption(const std::string &section, const std::string &key, const std::string &value);

    bool Generate(const CStringList &sources);          // writes the makefile; Error() and Outputs() tell the rest
    std::string Make(const std::string &goal = "all");  // its whole output; ExitCode()
    std::string Build(const CStringList &sources);      // both; the error instead when the makefile can't be written

    const std::string &Error() const { return error_; }
    const CStringList &Outputs() const { return outputs_; }
    int ExitCode() const { return exitCode_; }
    bool HasOutputs() const;  // all that the module declared are there

    std::string project, config;  // Windows form
    std::string title;

private:
    std::string directory_;
    std::string error_;
    CStringList outputs_;
    int exitCode_ = 0;
};
