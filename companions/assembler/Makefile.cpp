#include "Makefile.h"

#include <algorithm>
#include <cstdio>

#include "MakeText.h"
#include "platform/ChildProcess.h"
#include "platform/NativePath.h"
#include "platform/ProgramDirectory.h"

namespace {

constexpr size_t kFilesPerRemoval = 50;  // keeps recipe lines readable and below the system's limit

using Words = std::vector<std::string>;

std::string Recipe(const Words &words) {
    std::string line;
    for (const std::string &word : words) line += (line.empty() ? "" : " ") + RecipeWord(word);
    return line;
}

std::string Target(const std::string &file) {
    return MakeWord(file, MakeRole::target);
}
std::string Prerequisite(const std::string &file) {
    return MakeWord(file, MakeRole::prerequisite);
}

std::string ImageWords(const Words &files) {
    std::string words;
    for (const std::string &file : files) words += " --image " + RecipeWord(file);
    return words;
}

// A recipe's words as the value of a variable, where a "#" begins a comment even between quotes.
std::string VariableValue(const std::string &words) {
    std::string value;
    for (const char c : words) {
        if (c == '#') value += '\\';
        value += c;
    }
    return value;
}

// Names a set of options: a file of this name stands for the options with which the last build was made.
std::string Stamp(const BuildPlan &plan, const char *job, const std::string &options) {
    uint64_t hash = 14695981039346656037u;
    for (const char c : options) hash = (hash ^ static_cast<uint8_t>(c)) * 1099511628211u;
    char text[17];
    std::snprintf(text, sizeof text, "%016llx", static_cast<unsigned long long>(hash));
    return plan.stamp + "." + job + "-" + text + ".options";
}

class CMakefileWriter {
public:
    CMakefileWriter(const BuildPlan &plan, const MakefileGoals &goals) : plan_(plan), goals_(goals) {}

    std::string Write() {
        Collect();
        WriteHead();
        WriteGoals();
        WriteObjects();
        WriteProgram();
        WriteLibrary();
        WriteDisassembly();
        WriteStamps();
        WriteClean();
        return std::move(text_);
    }

private:
    void Line(const std::string &line) { text_ += line + "\n"; }

    void Collect() {
        for (const PlannedSource &source : plan_.sources) objects_.push_back(source.object);
        program_ = plan_.ProgramFiles();
        statistics_ = {plan_.Image(".tree"), plan_.Image(".stat")};
        results_ = program_;
        results_.insert(results_.end(), statistics_.begin(), statistics_.end());
        results_.push_back(plan_.Image(".lib"));
        results_.push_back(plan_.Image(".dis"));

        assemble_ = {"gpasm", "-c",
                     "-p",    plan_.device.processor,
                     "-r",    RadixName(plan_.options.radix),
                     "-w",    std::to_string(static_cast<int>(plan_.options.messages))};
        if (plan_.options.ignoreCase) assemble_.push_back("-i");
        for (const std::string &define : plan_.options.defines) assemble_.insert(assemble_.end(), {"-D", define});
        for (const std::string &word : SplitCommandLine(plan_.options.assemblerExtra)) assemble_.push_back(word);

        link_ = {"gplink", "-m", "-c", "-o", plan_.Image(".hex")};
        if (!plan_.linkerScript.empty()) link_.insert(link_.end(), {"-s", plan_.linkerScript});
        link_.insert(link_.end(), {"-I", plan_.libraryDirectory});
        for (const std::string &path : plan_.includePaths) link_.insert(link_.end(), {"-I", path});
        for (const std::string &word : LinkerWords(plan_.options.linkerExtra)) link_.push_back(word);
        link_.insert(link_.end(), objects_.begin(), objects_.end());
        link_.insert(link_.end(), plan_.libraries.begin(), plan_.libraries.end());

        archive_ = {"gplib", "-c", plan_.Image(".lib")};
        archive_.insert(archive_.end(), objects_.begin(), objects_.end());

        Words assembleOptions = assemble_;
        assembleOptions.insert(assembleOptions.end(), plan_.includePaths.begin(), plan_.includePaths.end());
        assembleStamp_ = Stamp(plan_, "assemble", Recipe(assembleOptions));
        linkStamp_ = Stamp(plan_, "link", Recipe(link_) + Recipe(statistics_) + Recipe(archive_));
    }

    void WriteHead() {
        text_ += kMakeDefinitions;
        Line("MAKEFLAGS += --no-builtin-rules");
        Line("ASMTOOL := " + VariableValue(RecipeWord(ToNativePath(ProgramFile("asmtool.exe")))));
        Line("IMAGES :=" + VariableValue(ImageWords(results_)));
        Line(".SUFFIXES:");
        Line(".DELETE_ON_ERROR:");
        Line(".PHONY: all clean assemble link library disassemble usage");
        Line("");
    }

    void WriteGoals() {
        std::string all = "all: assemble";
        if (goals_.link) all += " link";
        if (goals_.library) all += " library";
        if (goals_.link && goals_.disassemble) all += " disassemble";
        Line(all);
        std::string assemble = "assemble:";
        for (const std::string &object : objects_) assemble += " " + object;
        Line(assemble);
        std::string link = "link:";
        for (const std::string &file : program_) link += " " + Prerequisite(file);
        Line(link);
        Line("library: " + Prerequisite(plan_.Image(".lib")));
        Line("disassemble: " + Prerequisite(plan_.Image(".dis")));
        Line("usage: link\n\t@" + Usage());
        Line("");
    }

    std::string Usage() const { return "$(ASMTOOL) usage" + MemorySize() + " " + RecipeWord(plan_.Image(".cof")); }

    std::string MemorySize() const {
        return (plan_.device.countsBytes ? " --bytes " : " --size ") + std::to_string(plan_.device.programSize);
    }

    void WriteObjects() {
        for (const PlannedSource &source : plan_.sources) {
            Words words = assemble_;
            if (!source.ownDirectory.empty()) words.insert(words.end(), {"-I", source.ownDirectory});
            for (const std::string &path : plan_.includePaths) words.insert(words.end(), {"-I", path});

            Line(source.object + ": " + Prerequisite(source.source) + " " + assembleStamp_);
            std::string recipe = "\t@$(ASMTOOL) assemble --object " + source.object + " --rules " + source.rules +
                                 " --source " + RecipeWord(source.source) + " --processor " +
                                 RecipeWord(plan_.device.processor);
            if (!source.listing.empty()) recipe += " --listing " + source.listing;
            Line(recipe + " $(IMAGES) -- " + Recipe(words));
            // Never made; the rule tells of a source that isn't there.
            Line(Target(source.source) + ":");
            Line("\t@test -e " + RecipeWord(source.source) + " || $(ASMTOOL) missing --source " +
                 RecipeWord(source.source) + " $(IMAGES)");
            Line("-include " + source.rules);
        }
        Line("");
    }

    void WriteProgram() {
        std::string rule;
        for (const std::string &file : program_) rule += Target(file) + " ";
        rule += "&:" + Inputs();
        if (!plan_.linkerScript.empty()) rule += " " + Prerequisite(plan_.linkerScript);
        Line(rule);
        Line("\t@$(ASMTOOL) link" + ImageWords(program_) + ImageWords(statistics_) + MemorySize() + " --processor " +
             RecipeWord(plan_.device.processor) + " -- " + Recipe(link_));
        if (goals_.memoryUsage) Line("\t@" + Usage());
        WriteGivenFiles();
        Line("");
    }

    std::string Inputs() const {
        std::string inputs;
        for (const std::string &object : objects_) inputs += " " + object;
        for (const std::string &library : plan_.libraries) inputs += " " + Prerequisite(library);
        return inputs + " " + linkStamp_;
    }

    // Libraries and the linker script are never made; their rules tell of one that isn't there.
    void WriteGivenFiles() {
        Words files = plan_.libraries;
        if (!plan_.linkerScript.empty()) files.push_back(plan_.linkerScript);
        for (const std::string &file : files) {
            Line(Target(file) + ":");
            Line("\t@test -e " + RecipeWord(file) + " || $(ASMTOOL) missing --source " + RecipeWord(file) +
                 " $(IMAGES)");
        }
    }

    void WriteLibrary() {
        const std::string library = plan_.Image(".lib");
        std::string rule = Target(library) + ":";
        for (const std::string &object : objects_) rule += " " + object;
        Line(rule + " " + linkStamp_);
        Line("\t@$(ASMTOOL) library" + ImageWords({library}) + " -- " + Recipe(archive_));
        Line("");
    }

    void WriteDisassembly() {
        const std::string listing = plan_.Image(".dis"), program = plan_.Image(".hex");
        Line(Target(listing) + ": " + Prerequisite(program));
        Line("\t@$(ASMTOOL) disassemble" + ImageWords({listing}) + " -- " +
             Recipe({"gpdasm", "-p", plan_.device.processor, program}));
        Line("");
    }

    void WriteStamps() {
        for (const std::string &stamp : {assembleStamp_, linkStamp_}) {
            const std::string pattern = stamp.substr(0, stamp.rfind('-')) + "-*.options";
            Line(stamp + ":");
            Line("\t@mkdir -p " + RecipeWord(plan_.outputDirectory) + " && rm -f " + pattern + " && : > " + stamp);
        }
        Line("");
    }

    void WriteClean() {
        Words files = results_;
        files.push_back(plan_.stamp + ".mak");
        for (const PlannedSource &source : plan_.sources) {
            files.insert(files.end(), {source.object, source.rules});
            if (!source.listing.empty()) files.push_back(source.listing);
        }
        Line("clean:");
        for (size_t begin = 0; begin < files.size(); begin += kFilesPerRemoval) {
            const auto first = files.begin() + static_cast<std::ptrdiff_t>(begin);
            Line("\t@rm -f " + Recipe(Words(first, files.begin() + static_cast<std::ptrdiff_t>(std::min(
                                                                       begin + kFilesPerRemoval, files.size())))));
        }
        Line("\t@rm -f " + plan_.stamp + ".assemble-*.options " + plan_.stamp + ".link-*.options");
    }

    const BuildPlan &plan_;
    const MakefileGoals goals_;
    Words objects_, program_, results_;
    Words statistics_;                 // made with the program; nothing depends on them
    Words assemble_, link_, archive_;  // command lines; the source's own words are added to the first
    std::string assembleStamp_, linkStamp_;
    std::string text_;
};

}  // namespace

std::string MakefileText(const BuildPlan &plan, const MakefileGoals &goals) {
    return CMakefileWriter(plan, goals).Write();
}
