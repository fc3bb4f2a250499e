// The grammar of a file name that is cut into its root, its directories and its name. Nothing is skipped.
#pragma once

#include <boost/spirit/include/classic_chset.hpp>
#include <boost/spirit/include/classic_core.hpp>
#include <functional>
#include <string_view>

// An optional quote, an optional root, directories, a name, an optional quote. Besides "c:\" and "\\" a separator alone
// is a root, because a full native name has no drive in the Windows form. Characters beyond ASCII are parts of names.
struct path_filter_grammar : public boost::spirit::classic::grammar<path_filter_grammar> {
    using Action = std::function<void(std::string_view)>;

    path_filter_grammar(Action root, Action directory, Action name)
        : root_action(std::move(root)), directory_action(std::move(directory)), name_action(std::move(name)) {}

    // True when the whole of `text` matched; what was told counts only then.
    bool ParseWhole(std::string_view text) const {
        return boost::spirit::classic::parse(text.data(), text.data() + text.size(), *this).full;
    }

    template <typename Scanner>
    struct definition {
        explicit definition(const path_filter_grammar &self) {
            using namespace boost::spirit::classic;
            const auto tell = [](const Action &action) {
                return [&action](const char *first, const char *last) {
                    action(std::string_view(first, static_cast<size_t>(last - first)));
                };
            };
            const chset<> separator("/\\"), name_first("a-zA-Z0-9_.~!)(=@#$%^&+\x80-\xff-");
            const chset<> name_further = name_first | ' ';

            name = lexeme_d[name_first >> *name_further];
            directory = name >> separator;
            root = (range_p('a', 'z') | range_p('A', 'Z')) >> ':' >> separator | "\\\\" | separator;
            path = !ch_p('"') >> !root[tell(self.root_action)] >> *directory[tell(self.directory_action)] >>
                   name[tell(self.name_action)] >> !ch_p('"');
        }

        boost::spirit::classic::rule<Scanner> path, root, directory, name;
        const boost::spirit::classic::rule<Scanner> &start() const { return path; }
    };

    Action root_action, directory_action;  // each with the separator that ends it
    Action name_action;
};
