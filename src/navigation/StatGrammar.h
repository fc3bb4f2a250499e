// The grammar of a line of the function statistics that a build leaves.
#pragma once

#include <functional>
#include <string_view>

#include "navigation/TreeGrammar.h"

// Any number of: name : "file", line = number, ram = number . number, rom = number ; which "class", the class's name
// and a colon can stand before, and: #HEAP_BLOCK : number, number, number ;
struct stat_grammar : public boost::spirit::classic::grammar<stat_grammar> {
    // For the record that is being read; it counts once it is complete.
    struct Actions {
        std::function<void(std::string_view)> class_name;
        std::function<void(std::string_view)> name;
        std::function<void(std::string_view)> file;  // not told of an empty one
        std::function<void(unsigned)> line, ram_whole, ram_part, rom;
        std::function<void()> begin_action;  // a record can begin here: nothing is told of it yet
        std::function<void()> complete_action;
    };

    explicit stat_grammar(const Actions &all) : actions(all) {}

    template <typename Scanner>
    struct definition {
        explicit definition(const stat_grammar &self) {
            using namespace boost::spirit::classic;
            const Actions &actions = self.actions;
            using namespace grammar_action;
            const chset<> name_first("a-zA-Z_*#~"), name_further("a-zA-Z0-9_*(),?[] ");
            const file_name_token file_name;

            name = lexeme_d[name_first >> *name_further];
            file = '"' >> !lexeme_d[file_name.first >> *file_name.further][with_text(actions.file)] >> '"';
            line_number = str_p("line") >> '=' >> uint_p[with_number(actions.line)];
            ram = str_p("ram") >> '=' >> uint_p[with_number(actions.ram_whole)] >> '.' >>
                  uint_p[with_number(actions.ram_part)];
            rom = str_p("rom") >> '=' >> uint_p[with_number(actions.rom)];
            fields =
                name[with_text(actions.name)] >> ':' >> file >> ',' >> line_number >> ',' >> ram >> ',' >> rom >> ';';
            begin = eps_p[bare(actions.begin_action)];
            record = begin >> fields[bare(actions.complete_action)];
            class_record =
                begin >> "class" >> name[with_text(actions.class_name)] >> ':' >> fields[bare(actions.complete_action)];
            heap_block = str_p("#HEAP_BLOCK") >> ':' >> uint_p >> ',' >> uint_p >> ',' >> uint_p >> ';';
            line = *(record | class_record | heap_block) >> end_p;
        }

        boost::spirit::classic::rule<Scanner> line, record, class_record, heap_block, begin, fields;
        boost::spirit::classic::rule<Scanner> name, file, line_number, ram, rom;
        const boost::spirit::classic::rule<Scanner> &start() const { return line; }
    };

    const Actions &actions;  // of whoever parses
};
