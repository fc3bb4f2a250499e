// The grammars of a line of an assembler's symbol table: a name, and behind it an address.
#pragma once

#include <boost/spirit/include/classic_chset.hpp>
#include <boost/spirit/include/classic_core.hpp>
#include <cstdint>
#include <functional>
#include <string_view>

// The name at the start of a line. Nothing is skipped.
struct asm_var_name_grammar : public boost::spirit::classic::grammar<asm_var_name_grammar> {
    using NameAction = std::function<void(std::string_view)>;

    explicit asm_var_name_grammar(NameAction name) : name_action(std::move(name)) {}

    // The rest of `line`; empty when there is no name, or nothing behind it.
    std::string_view Parse(std::string_view line) const {
        const auto info = boost::spirit::classic::parse(line.data(), line.data() + line.size(), *this);
        return info.hit ? line.substr(info.length) : std::string_view();
    }

    template <typename Scanner>
    struct definition {
        explicit definition(const asm_var_name_grammar &self) {
            using namespace boost::spirit::classic;
            const auto tell = [&self](const char *first, const char *last) {
                self.name_action(std::string_view(first, static_cast<size_t>(last - first)));
            };
            name = lexeme_d[chset<>("a-zA-Z_") >> *chset<>("a-zA-Z0-9_")][tell];
        }

        boost::spirit::classic::rule<Scanner> name;
        const boost::spirit::classic::rule<Scanner> &start() const { return name; }
    };

    NameAction name_action;
};

// Hexadecimal digits with nothing but white space around them.
struct asm_var_addr_grammar : public boost::spirit::classic::grammar<asm_var_addr_grammar> {
    using DigitAction = std::function<void(unsigned)>;

    explicit asm_var_addr_grammar(DigitAction digit) : digit_action(std::move(digit)) {}

    // True when the whole of `text` matched.
    bool ParseWhole(std::string_view text) const {
        using namespace boost::spirit::classic;
        return boost::spirit::classic::parse(text.data(), text.data() + text.size(), *this >> end_p, space_p).full;
    }

    template <typename Scanner>
    struct definition {
        explicit definition(const asm_var_addr_grammar &self) {
            using namespace boost::spirit::classic;
            const auto tell = [&self](char digit) {
                self.digit_action(digit <= '9' ? digit - '0' : (digit | 32) - 'a' + 10);
            };
            address = lexeme_d[+chset<>("0-9a-fA-F")[tell]];
        }

        boost::spirit::classic::rule<Scanner> address;
        const boost::spirit::classic::rule<Scanner> &start() const { return address; }
    };

    DigitAction digit_action;  // the value of each digit, in their order
};
