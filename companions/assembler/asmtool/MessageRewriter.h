// The output of gpasm and gplink in the words that the build list reads a place from.
//
//   sub/a.asm:12:Error[113]   text       sub/a.asm(12): Error[113] text
//   Error[125]   text                    a.asm(80): Error[125] text      the source's last line
//   error: Missing definition ...        a.asm(7): Error: Missing ...    where the objects tell it
//
// A name that this form can't hold (with a parenthesis, beyond ASCII, or like the words of another form) is written on
// a line of its own, with "line 12: Error[113] text" below it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

class CMessageRewriter {
public:
    struct Context {
        std::string source;                 // what is assembled; empty for the linker
        std::string processor;              // "p16f628a"
        std::vector<std::string> objects;   // what is linked
        std::vector<std::string> includes;  // directories that includes are looked for in
    };

    explicit CMessageRewriter(Context context) : context_(std::move(context)) {}

    // The lines to show for one line of the tool, without line ends; none for a line that tells the user nothing.
    std::vector<std::string> Rewrite(std::string_view line);

    bool SawError() const { return sawError_; }  // gplink ends with 0 after some errors

private:
    void WriteMessage(std::vector<std::string> &out, std::string_view file, int line, const std::string &text);
    void RewriteLinkMessage(std::vector<std::string> &out, const std::string &kind, std::string_view text);
    bool NamesTheSameProcessor(std::string_view file, int line) const;
    std::string HintFor(const std::string &include) const;

    Context context_;
    bool sawError_ = false;
};
