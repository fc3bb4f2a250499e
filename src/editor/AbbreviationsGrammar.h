// The grammar of the abbreviations file: pairs of a name and a text in "<*" and "*>", with white space between tokens.
#pragma once

#include <boost/spirit/include/classic_core.hpp>
#include <functional>
#include <string_view>

struct abbreviations_grammar : public boost::spirit::classic::grammar<abbreviations_grammar> {
    using Action = std::function<void(std::string_view)>;

    abbreviations_grammar(Action name, Action text) : name_action(std::move(name)), text_action(std::move(text)) {}

    // True when the whole of `file` is such pairs. The actions have run for those before the first fault in any case.
    bool ParseWhole(std::string_view file) const {
        using namespace boost::spirit::classic;
        return boost::spirit::classic::parse(file.data(), file.data() + file.size(), *this, space_p).full;
    }

    template <typename Scanner>
    struct definition {
        explicit definition(const abbreviations_grammar &self) {
            using namespace boost::spirit::classic;
            const auto tell = [](const Action &action) {
                return [&action](const char *first, const char *last) {
                    action(std::string_view(first, static_cast<size_t>(last - first)));
                };
            };
            // Bytes beyond ASCII are letters of UTF-8 names.
            name = lexeme_d[+(graph_p | range_p('\x80', '\xff'))][tell(self.name_action)];
            text = str_p("<*") >> lexeme_d[*(anychar_p - "*>")][tell(self.text_action)] >> "*>";
            file = *(name >> text) >> end_p;
        }

        boost::spirit::classic::rule<Scanner> file, name, text;
        const boost::spirit::classic::rule<Scanner> &start() const { return file; }
    };

    Action name_action;  // the name of the entry that follows
    Action text_action;  // its text
};
