// The grammar of the call tree that a build leaves, and what the grammars of such files have in common.
#pragma once

#include <boost/spirit/include/classic_chset.hpp>
#include <boost/spirit/include/classic_core.hpp>
#include <functional>
#include <string_view>

// What may stand between any two tokens: white space, and "//" with all that follows it in its line.
struct skip_grammar : public boost::spirit::classic::grammar<skip_grammar> {
    template <typename Scanner>
    struct definition {
        explicit definition(const skip_grammar &) {
            using namespace boost::spirit::classic;
            skipped = space_p | str_p("//") >> *(anychar_p - '\n') >> ('\n' | end_p);
        }

        boost::spirit::classic::rule<Scanner> skipped;
        const boost::spirit::classic::rule<Scanner> &start() const { return skipped; }
    };
};

// What a grammar calls on a match, made of an action that outlives the parsing: with the text, with its number, bare.
namespace grammar_action {

template <typename Action>
auto with_text(const Action &action) {
    return [&action](const char *first, const char *last) {
        action(std::string_view(first, static_cast<size_t>(last - first)));
    };
}

template <typename Action>
auto with_number(const Action &action) {
    return [&action](unsigned value) { action(value); };
}

template <typename Action>
auto bare(const Action &action) {
    return [&action](const char *, const char *) { action(); };
}

}  // namespace grammar_action

// A name of a file in its quotes, without what may stand between them and it.
struct file_name_token {
    boost::spirit::classic::chset<> first{"a-zA-Z0-9_.~!)(=@#$%^&+-"};
    boost::spirit::classic::chset<> further{"a-zA-Z0-9_.~!)(=@#$%^&+ \\/:-"};
};

// Functions with their places, each with those that it calls between braces: name : "file", line = number { ... }
//
// The braces are counted and not descended into, so that a file of any depth takes the same stack.
struct tree_grammar : public boost::spirit::classic::grammar<tree_grammar> {
    struct Actions {
        std::function<void(std::string_view)> name;  // of the function whose line has begun
        std::function<void(std::string_view)> file;
        std::function<void(unsigned)> line;
        std::function<void()> add_node_action;    // its line is complete
        std::function<void()> levelstart_action;  // its calls follow
        std::function<void()> levelend_action;    // they are complete
        std::function<bool()> is_open;            // more levels have started than ended
    };

    explicit tree_grammar(const Actions &all) : actions(all) {}

    template <typename Scanner>
    struct definition {
        explicit definition(const tree_grammar &self) {
            using namespace boost::spirit::classic;
            const Actions &actions = self.actions;
            using namespace grammar_action;
            const auto letter = [](const auto &action) { return [&action](char) { action(); }; };
            const auto is_open = [&actions] { return actions.is_open(); };
            const auto is_closed = [&actions] { return !actions.is_open(); };
            const chset<> name_first("a-zA-Z~_"), name_further("a-zA-Z0-9_");
            const file_name_token file_name;

            name = lexeme_d[name_first >> *name_further][with_text(actions.name)];
            file = '"' >> lexeme_d[file_name.first >> *file_name.further][with_text(actions.file)] >> '"';
            line = str_p("line") >> '=' >> uint_p[with_number(actions.line)];
            head = name >> ':' >> file >> ',' >> line;
            level_start = head[bare(actions.add_node_action)] >> ch_p('{')[letter(actions.levelstart_action)];
            level_end = eps_p(is_open) >> ch_p('}')[letter(actions.levelend_action)];
            items = *(level_start | level_end) >> eps_p(is_closed) >> end_p;
        }

        boost::spirit::classic::rule<Scanner> items, level_start, level_end, head, name, file, line;
        const boost::spirit::classic::rule<Scanner> &start() const { return items; }
    };

    const Actions &actions;  // of whoever parses
};
