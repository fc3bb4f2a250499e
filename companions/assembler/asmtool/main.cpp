// Runs a GNU PIC utility for a makefile: hands its messages on in the form that the build list reads, passes its exit
// code on, and removes what a failed step would leave behind, so that a missing file tells of the failure.
//
//   asmtool.exe assemble --object O --rules R --source S --processor P [--listing L] [--image I]... -- gpasm words...
//   asmtool.exe link --image I... [--size WORDS] [--processor P] -- gplink words...
//                                                the image's files; gplink's own words name the objects and libraries;
//                                                images "x.tree" and "x.stat" are written out of "x.cof" after the
//                                                link; "x.lst" gets what the linker left out of it,
//                                                and a table of the variables
//   asmtool.exe library --image I -- gplib words...
//   asmtool.exe disassemble --image I -- gpdasm words...         its output becomes the image
//   asmtool.exe usage --size WORDS|--bytes BYTES IMAGE.cof
//   asmtool.exe missing --source S [--image I]...
//   asmtool.exe fail TEXT                                        says why there is nothing to run
#include <sys/resource.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "DependencyFile.h"
#include "LinkStatistics.h"
#include "ListingGaps.h"
#include "ListingSymbols.h"
#include "MemoryUsage.h"
#include "MessageRewriter.h"
#include "StatisticsFiles.h"
#include "ToolRun.h"
#include "platform/FileText.h"
#include "platform/NativePath.h"
#include "platform/PathCalls.h"

namespace fs = std::filesystem;

namespace {

constexpr rlim_t kLongestAssembly = 10;  // seconds of processor time; the largest sources take less than one
constexpr const char *kNoSourceHeading = "\nCode without a source at hand\n\n";
constexpr int kExitFailure = 1, kExitUsage = 2, kExitNotFound = 127, kExitSignal = 128;

struct Arguments {
    std::string job, object, rules, source, processor, listing, image;
    std::vector<std::string> images;
    std::vector<std::string> tool;  // the utility and its words
    uint32_t size = 0;
    bool inBytes = false;
};

void Print(std::string_view line) {
    std::fwrite(line.data(), 1, line.size(), stdout);
    std::fputc('\n', stdout);
    std::fflush(stdout);
}

bool ReadArguments(int argc, char **argv, Arguments &arguments) {
    if (argc < 2) return false;
    arguments.job = argv[1];
    const struct {
        std::string_view option;
        std::string *value;
    } names[] = {
        {"--object", &arguments.object},       {"--rules", &arguments.rules},     {"--source", &arguments.source},
        {"--processor", &arguments.processor}, {"--listing", &arguments.listing},
    };
    for (int i = 2; i < argc; ++i) {
        const std::string_view word = argv[i];
        if (word == "--") {
            arguments.tool.assign(argv + i + 1, argv + argc);
            break;
        }
        if (!word.starts_with("--")) {
            arguments.image = word;
            continue;
        }
        if (++i == argc) return false;
        const char *value = argv[i];
        const auto name =
            std::find_if(std::begin(names), std::end(names), [&](const auto &n) { return word == n.option; });
        if (name != std::end(names)) {
            *name->value = value;
        } else if (word == "--image") {
            arguments.images.emplace_back(value);
        } else if (word == "--size" || word == "--bytes") {
            arguments.size = static_cast<uint32_t>(std::strtoul(value, nullptr, 10));
            arguments.inBytes = word == "--bytes";
        } else {
            return false;
        }
    }
    return true;
}

void Remove(const std::string &file) {
    std::error_code ignored;
    if (!file.empty()) fs::remove(file, ignored);
}

void RemoveAll(const std::vector<std::string> &files) {
    for (const std::string &file : files) Remove(file);
}

std::vector<std::string> IncludeDirectories(const std::vector<std::string> &tool) {
    std::vector<std::string> directories;
    for (size_t i = 0; i + 1 < tool.size(); ++i)
        if (tool[i] == "-I") directories.push_back(tool[i + 1]);
    return directories;
}

// Runs the utility with its messages rewritten. 0 when it did its work.
int RunRewritten(const Arguments &arguments) {
    CMessageRewriter::Context context{arguments.source, arguments.processor, {}, IncludeDirectories(arguments.tool)};
    for (const std::string &word : arguments.tool)
        if (word.ends_with(".o")) context.objects.push_back(word);
    CMessageRewriter rewriter(std::move(context));
    bool spoke = false;
    const ToolResult result = RunTool(arguments.tool, arguments.job == "link" ? Repetition::end : Repetition::keep,
                                      [&](std::string_view line) {
                                          for (const std::string &text : rewriter.Rewrite(line)) {
                                              Print(text);
                                              spoke = true;
                                          }
                                      });
    const std::string &name = arguments.tool.front();
    if (!result.started) {
        Print("Error: " + name + " can't be run. Is the package \"gputils\" installed?");
        return kExitNotFound;
    }
    if (result.signal) return kExitSignal + result.signal;
    if (result.stoppedByUs) {
        Print("Error: " + name + " repeated its last message without end and was stopped.");
        return kExitFailure;
    }
    if (result.exitCode == kExitSignal + SIGXCPU)
        Print("Error: " + name + " found no end of " + arguments.source +
              ". Does a macro or an include take itself in?");
    else if (result.exitCode > kExitSignal)
        Print("Error: " + name + " was ended by signal " + std::to_string(result.exitCode - kExitSignal) + ".");
    else if (result.exitCode != 0 && !spoke)
        Print("Error: " + name + " failed with exit code " + std::to_string(result.exitCode) + ".");
    return result.exitCode != 0 ? result.exitCode : rewriter.SawError() ? kExitFailure : 0;
}

// A macro or an include that takes itself in keeps the assembler busy for ever, without a word.
void LimitProcessorTime() {
    const rlimit limit = {kLongestAssembly, kLongestAssembly + 5};
    setrlimit(RLIMIT_CPU, &limit);  // of this process and, inherited, of the assembler
}

// Assembles under names of its own; the object takes its place as the last thing, so that an object that is there is
// whole and has its rules beside it.
int Assemble(Arguments &arguments) {
    const fs::path object(arguments.object);
    const fs::path working = object.parent_path() / (object.stem().string() + "~.o");
    const auto beside = [&](const char *extension) { return fs::path(working).replace_extension(extension).string(); };
    Print("Assembling " + arguments.source);
    LimitProcessorTime();
    Remove(arguments.object);
    arguments.tool.insert(arguments.tool.end(), {"-M", "-o", working.string(), arguments.source});
    int code = RunRewritten(arguments);
    if (code == 0) {
        const std::string rules = DependencyRules(
            arguments.object, ReadAssemblerDependencies(ReadWholeFile(FromNativePath(beside(".d"))).value_or("")),
            IncludeDirectories(arguments.tool));
        std::error_code error;
        if (!arguments.listing.empty()) fs::rename(beside(".lst"), arguments.listing, error);
        if (error || !ReplaceWholeFile(FromNativePath(arguments.rules), rules)) {
            Print("Error: " + (error ? arguments.listing : arguments.rules) + " can't be written.");
            code = kExitFailure;
        } else if (fs::rename(working, object, error); error) {
            Print("Error: " + arguments.object + " can't be written: " + error.message());
            code = kExitFailure;
        }
    }
    RemoveAll({working.string(), beside(".d"), beside(".lst"), beside(".err")});
    if (code != 0) {
        Remove(arguments.object);
        RemoveAll(arguments.images);
    }
    return code;
}

std::string ImageWithExtension(const Arguments &arguments, std::string_view extension) {
    const auto found = std::find_if(arguments.images.begin(), arguments.images.end(),
                                    [&](const std::string &image) { return image.ends_with(extension); });
    return found == arguments.images.end() ? std::string() : *found;
}

// Call tree and function information tell about a program and are no part of it: the link stands without them.
void DescribeLink(const Arguments &arguments) {
    const std::string tree = ImageWithExtension(arguments, ".tree"), stat = ImageWithExtension(arguments, ".stat");
    if (tree.empty() || stat.empty()) return;
    std::vector<std::string> inputs;
    for (const std::string &word : arguments.tool)
        if (const std::string extension = LowerCase(fs::path(word).extension().string());
            extension == ".o" || extension == ".lib" || extension == ".a")
            inputs.push_back(word);
    bool written = false;
    try {
        const auto statistics = CollectLinkStatistics(ImageWithExtension(arguments, ".cof"), inputs, arguments.size);
        written = statistics && WriteStatistics(*statistics, tree, stat);
    } catch (const std::exception &) {  // out of memory
    }
    if (!written) Print("Warning: " + tree + " and " + stat + " can't be written.");
}

// Of the program's own objects, where they lie beside these.
std::vector<std::string> AssemblerListings(const Arguments &arguments) {
    std::vector<std::string> listings;
    for (const std::string &word : arguments.tool)
        if (fs::path object(word); object.extension() == ".o")
            if (auto text = ReadWholeFile(FromNativePath(object.replace_extension(".lst").string())))
                listings.push_back(std::move(*text));
    return listings;
}

// The listing serves without what is missing in it, too: nothing is told of a failure.
void CompleteListing(const Arguments &arguments) {
    const std::string name = ImageWithExtension(arguments, ".lst"), program = ImageWithExtension(arguments, ".hex");
    if (name.empty() || program.empty() || arguments.processor.empty()) return;
    try {
        const std::string listing = ReadWholeFile(FromNativePath(name)).value_or("");
        const CLinkedImage image(CObjectFile(FromNativePath(ImageWithExtension(arguments, ".cof"))), arguments.size);
        const std::set<uint32_t> gaps = ListingGaps(listing, image);
        std::string complete = WithSecondWords(listing), lines;
        const auto add = [&](std::string_view disassembled) {
            if (const std::string line = ListingLineOf(disassembled, gaps); !line.empty()) lines += line + "\n";
        };
        if (!gaps.empty()) RunTool({"gpdasm", "-i", "-p", arguments.processor, program}, Repetition::keep, add);
        if (!lines.empty()) complete += kNoSourceHeading + lines;
        complete += SymbolTable(image, AssemblerListings(arguments));
        if (complete != listing) ReplaceWholeFile(FromNativePath(name), complete);
    } catch (const std::exception &) {  // out of memory
    }
}

int Link(const Arguments &arguments) {
    if (!arguments.images.empty()) Print("Linking " + arguments.images.front());
    RemoveAll(arguments.images);
    const int code = RunRewritten(arguments);
    if (code != 0) {
        RemoveAll(arguments.images);
    } else if (arguments.job == "link") {
        DescribeLink(arguments);
        CompleteListing(arguments);
    }
    return code;
}

int Disassemble(const Arguments &arguments) {
    if (arguments.images.empty()) return kExitUsage;
    const std::string &name = arguments.images.front();
    Print("Disassembling to " + name);
    std::FILE *file = std::fopen(name.c_str(), "w");
    if (!file) {
        Print("Error: " + name + " can't be written.");
        return kExitFailure;
    }
    const ToolResult result = RunTool(arguments.tool, Repetition::keep, [&](std::string_view line) {
        std::fwrite(line.data(), 1, line.size(), file);
        std::fputc('\n', file);
    });
    const bool written = std::fclose(file) == 0;
    if (result.started && written && result.exitCode == 0 && !result.signal) return 0;
    Print("Error: " + arguments.tool.front() + (result.started ? " failed." : " can't be run."));
    Remove(name);
    return kExitFailure;
}

int Run(Arguments &arguments) {
    if (arguments.job == "missing") {
        Print(arguments.source + "(0): Error: there is no such source file");
        RemoveAll(arguments.images);
        return kExitFailure;
    }
    if (arguments.job == "fail") {
        Print("Error: " + arguments.image);
        return kExitFailure;
    }
    if (arguments.job == "usage") {
        const std::string text = DescribeMemoryUsage(arguments.image, arguments.size, arguments.inBytes);
        std::fputs(text.c_str(), stdout);
        return text.empty() ? kExitFailure : 0;
    }
    if (arguments.tool.empty()) return kExitUsage;
    if (arguments.job == "assemble") return Assemble(arguments);
    if (arguments.job == "link" || arguments.job == "library") return Link(arguments);
    if (arguments.job == "disassemble") return Disassemble(arguments);
    return kExitUsage;
}

}  // namespace

int main(int argc, char **argv) {
    Arguments arguments;
    const int code = ReadArguments(argc, argv, arguments) ? Run(arguments) : kExitUsage;
    if (code == kExitUsage) std::fputs("asmtool: wrong arguments; it is meant to be run by a makefile\n", stderr);
    return code;
}
