// Reading the tag generator's files.
//
// A line is "name<tab>file<tab>address;"<tab>kind letter ..."; lines that begin with "!" tell about the file. With line
// numbers the address is a decimal number, with patterns it is "/^the source line$/".
#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "navigation/SymbolMaps.h"

// Whose kind letters a tag file has.
enum class TagLanguage { c, pascal, basic };

// Adds the symbols of a tag file with line numbers; a kind letter that means no category drops its tag. Names of files
// come out in the Windows form. Any bytes are accepted.
class CTagReader {
public:
    CTagReader(std::string_view text, TagLanguage language, SymbolMaps &maps);  // text and maps outlive the reader
    ~CTagReader();

    bool Read(size_t most);  // at most that many tags; false at the end of the text

private:
    struct State;
    std::unique_ptr<State> state_;
    SymbolMaps &maps_;
};

// The same in one go.
void ParseTags(std::string_view text, TagLanguage language, SymbolMaps &maps);

// Adds the prototypes of a tag file with patterns. A declaration that doesn't end on its line gives none.
class CPrototypeReader {
public:
    // Text and prototypes outlive the reader.
    CPrototypeReader(std::string_view text, std::map<std::string, std::string> &prototypes);
    ~CPrototypeReader();

    bool Read(size_t most);  // as a CTagReader's

private:
    struct State;
    std::unique_ptr<State> state_;
    std::map<std::string, std::string> &prototypes_;
};

// The same in one go.
void ParsePrototypes(std::string_view text, std::map<std::string, std::string> &prototypes);

struct TagLine {
    std::string name;
    int line = 0;  // from 1
};

// Names and lines in the file's order, whatever their kind.
std::vector<TagLine> ParseFunctionTags(std::string_view text);
