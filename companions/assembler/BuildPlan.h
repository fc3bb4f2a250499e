// What a build of a project in one configuration consists of: names and options, ready for a makefile. File names are
// native and relative to the project's directory where they can be.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "DeviceList.h"
#include "Options.h"
#include "platform/SharedTypes.h"

struct PlannedSource {
    std::string source;
    std::string object, rules, listing;  // listing: empty when the program's listing takes that name
    std::string ownDirectory;            // the source's, searched for its includes; empty: the project's
};

struct BuildPlan {
    std::string directory;        // the project's, native
    std::string outputDirectory;  // "Debug"
    std::string image;            // "Debug/title", without extension
    std::string stamp;            // "Debug/title" in characters that need no quotes
    std::vector<PlannedSource> sources;
    std::vector<std::string> libraries;
    std::vector<std::string> includePaths;
    std::string linkerScript;
    std::string libraryDirectory;  // of the program directory
    Options options;
    Device device;

    std::string Image(const char *extension) const { return image + extension; }
    std::vector<std::string> ProgramFiles() const;  // what the linker makes
};

// `sources`: names as the host gives them. The empty optional with a sentence for the user in `error` when the project
// can't be built.
std::optional<BuildPlan> PlanBuild(const CStringList &sources, const std::string &project, const std::string &config,
                                   std::string &error);

// The files that a build leaves, Windows form, relative to the project's directory.
CStringList ProgramOutputs(const std::string &project, const std::string &config);
std::string LibraryOutput(const std::string &project, const std::string &config);
std::string DisassemblyOutput(const std::string &project, const std::string &config);
