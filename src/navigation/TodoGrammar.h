// The two grammars of remarks: one cuts a text into lines, the other finds the word TODO or FIXME in a line. Neither
// skips anything between tokens. Both take any bytes, and lines of any length without recursion.
#pragma once

#include <boost/spirit/include/classic_core.hpp>
#include <boost/spirit/include/classic_functor_parser.hpp>
#include <functional>
#include <string_view>

// One or more characters up to the end of a line, or of the text, in one step.
struct line_body_parser {
    using result_t = boost::spirit::classic::nil_t;

    template <typename Scanner>
    std::ptrdiff_t operator()(const Scanner &scan, result_t &) const {
        const auto begin = scan.first;
        while (scan.first != scan.last && *scan.first != '\r' && *scan.first != '\n') ++scan.first;
        return scan.first == begin ? -1 : scan.first - begin;
    }
};

// All that is left, which may be nothing.
struct rest_parser {
    using result_t = boost::spirit::classic::nil_t;

    template <typename Scanner>
    std::ptrdiff_t operator()(const Scanner &scan, result_t &) const {
        const auto begin = scan.first;
        scan.first = scan.last;
        return scan.last - begin;
    }
};

struct line_grammar : public boost::spirit::classic::grammar<line_grammar> {
    using LineAction = std::function<void(std::string_view)>;
    using EolAction = std::function<void()>;

    line_grammar(LineAction line, EolAction eol) : line_action(std::move(line)), eol_action(std::move(eol)) {}

    void Parse(std::string_view text) const {
        boost::spirit::classic::parse(text.data(), text.data() + text.size(), *this);
    }

    template <typename Scanner>
    struct definition {
        explicit definition(const line_grammar &self) {
            using namespace boost::spirit::classic;
            const functor_parser<line_body_parser> body_p{line_body_parser()};
            const auto tell_line = [&self](const char *first, const char *last) {
                self.line_action(std::string_view(first, static_cast<size_t>(last - first)));
            };
            const auto tell_eol = [&self](const char *, const char *) { self.eol_action(); };
            // The body is told before the end of line is looked for: a last line without one is told, too.
            body = body_p[tell_line];
            text = *(!body >> eol_p[tell_eol]);
        }

        boost::spirit::classic::rule<Scanner> text, body;
        const boost::spirit::classic::rule<Scanner> &start() const { return text; }
    };

    LineAction line_action;  // a line that isn't empty, without its end
    EolAction eol_action;    // behind each line
};

struct todo_grammar : public boost::spirit::classic::grammar<todo_grammar> {
    using TypeAction = std::function<void()>;
    using DescriptionAction = std::function<void(std::string_view)>;

    todo_grammar(TypeAction todo, TypeAction fixme, DescriptionAction description)
        : todo_type_action(std::move(todo)),
          fixme_type_action(std::move(fixme)),
          description_action(std::move(description)) {}

    // True when the whole of `line` matched.
    bool ParseWhole(std::string_view line) const {
        return boost::spirit::classic::parse(line.data(), line.data() + line.size(), *this).full;
    }

    template <typename Scanner>
    struct definition {
        explicit definition(const todo_grammar &self) {
            using namespace boost::spirit::classic;
            const functor_parser<rest_parser> rest_p{rest_parser()};
            const auto tell_todo = [&self](const char *, const char *) { self.todo_type_action(); };
            const auto tell_fixme = [&self](const char *, const char *) { self.fixme_type_action(); };
            const auto tell_description = [&self](const char *first, const char *last) {
                self.description_action(std::string_view(first, static_cast<size_t>(last - first)));
            };
            todo_item = as_lower_d["todo"][tell_todo] >> !ch_p(':') >> rest_p[tell_description];
            fixme_item = as_lower_d["fixme"][tell_fixme] >> !ch_p(':') >> rest_p[tell_description];
            item = todo_item | fixme_item;
            line = *(item | anychar_p);
        }

        boost::spirit::classic::rule<Scanner> line, item, todo_item, fixme_item;
        const boost::spirit::classic::rule<Scanner> &start() const { return line; }
    };

    TypeAction todo_type_action, fixme_type_action;  // the word was found
    DescriptionAction description_action;            // all that follows it in its line
};
