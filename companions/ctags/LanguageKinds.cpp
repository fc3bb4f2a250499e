#include "LanguageKinds.h"

#include <algorithm>

namespace {

// Letters of the tag generator. The ones that a project of C asks for count for C and C++ alone: the parsers of Pascal
// and BASIC know fewer kinds, and under other letters.
constexpr struct LanguageRow {
    const char *language;
    const char *prototypes;  // whose lines are headings of functions
    const char *document;    // functions of one source
    const char *cIndex, *pascalIndex, *basicIndex;
} kLanguages[] = {
    {"C", "p", "fp", "fvdsuegt", "fvdsuegt", "fge"},
    {"C++", "p", "fp", "fvdcsuegt", "fvdcsuegt", "fge"},
    {"Pascal", "fp", "fp", "fp", "fp", "fp"},
    {"Basic", "f", "fs", "fv", "fv", "fsdt"},
};

// Names in a DIM of BASIC that are found, and jump targets: letters that the tag generator doesn't know there.
constexpr int kDimNames = 8;
constexpr const char *kBasicDefinitions[] = {
    "--kinddef-Basic=d,dim,dimensioned variables",
    "--kinddef-Basic=s,subroutine,targets of jumps",
    "--regex-Basic=/^[ \t]*([A-Za-z_][A-Za-z0-9_]*):[ \t]*('.*)?$/\\1/s/",
};

// Spellings of extensions that come from systems where case doesn't count; an include file that is no assembler is C.
constexpr const char *kMaps[] = {"--map-C=+.inc", "--map-C=+.INC", "--map-Pascal=+.PAS", "--map-Basic=+.BAS"};

std::string Common(std::string_view letters, std::string_view wanted) {
    std::string both;
    std::ranges::copy_if(letters, std::back_inserter(both), [&](char c) { return wanted.find(c) != wanted.npos; });
    return both;
}

std::string KindsOf(const LanguageRow &row, const TagRequest &request) {
    if (request.IsForPrototypes()) return row.prototypes;
    if (request.IsForOneDocument()) return row.document;
    if (request.dialect == TagDialect::pascal) return row.pascalIndex;
    if (request.dialect == TagDialect::basic) return row.basicIndex;
    return row.language[0] == 'C' ? Common(row.cIndex, request.kinds) : row.cIndex;
}

void DefineBasic(std::vector<std::string> &options) {
    options.insert(options.end(), std::begin(kBasicDefinitions), std::end(kBasicDefinitions));
    const std::string name = "[A-Za-z_][A-Za-z0-9_]*";
    std::string before;
    for (int i = 0; i < kDimNames; ++i, before += "[^,']*,[ \t]*")
        options.push_back("--regex-Basic=/^[ \t]*dim[ \t]+" + before + "(" + name + ")/\\1/d/{icase}");
}

}  // namespace

std::vector<std::string> LanguageOptions(const TagRequest &request) {
    std::vector<std::string> options(std::begin(kMaps), std::end(kMaps));
    if (request.dialect == TagDialect::basic) DefineBasic(options);
    std::string languages;
    for (const LanguageRow &row : kLanguages) {
        languages += (languages.empty() ? "" : ",") + std::string(row.language);
        std::string kinds = KindsOf(row, request);
        if (request.dialect != TagDialect::basic && row.language == std::string("Basic")) kinds = Common(kinds, "fv");
        options.push_back("--kinds-" + std::string(row.language) + "=" + kinds);
    }
    options.push_back("--languages=" + languages);
    return options;
}

AssemblerKinds AssemblerKindsFor(const TagRequest &request) {
    if (request.IsForPrototypes()) return {};
    if (request.IsForOneDocument()) return {.label = 'f'};
    if (request.dialect == TagDialect::pascal) return {'f', 'v', 'd'};
    if (request.dialect == TagDialect::basic) return {'f', 'd', '\0'};
    const auto wanted = [&](char letter) { return request.kinds.find(letter) != std::string::npos ? letter : '\0'; };
    return {wanted('f'), wanted('v'), wanted('d')};
}
