// A generated project of C sources, large enough that every step of the symbol index shows.
#pragma once

#include <string>

#include "support/Program.h"

struct SymbolProject {
    static constexpr int kFiles = 1000;
    static constexpr int kSymbolsPerFile = 200;
    static constexpr int kSymbols = kFiles * kSymbolsPerFile;

    std::string directory;  // native; holds "list" too, the names of all sources
    std::string file;       // native

    static std::string Source(int index);  // a source's name in the directory
};

SymbolProject MakeSymbolProject(const CScratch &scratch);
