// A document's source: one file of GitHub's Markdown with tables, whose first heading is the title and whose first
// paragraph says what the document is for.
#pragma once

#include <cmark-gfm.h>

#include <QString>
#include <functional>
#include <memory>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

// What is wrong with a source, in words for the one who writes it: "docs/manual.md:12: ...".
struct ManuscriptError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct Heading {
    int level;         // from 2
    std::string text;  // plain
    std::string slug;  // what a link in the document names it by, as GitHub forms it
};

class CManuscript {
public:
    // Reads and checks the whole file: every picture is there and sound, every link within the document leads somewhere.
    // Throws ManuscriptError.
    explicit CManuscript(const std::string &file);

    const std::string &Title() const { return title_; }
    const std::string &Summary() const { return summary_; }
    const std::vector<Heading> &Headings() const { return headings_; }  // without the title, in order

    // The text without title and summary as HTML. `image` gives a picture's element for its file and its description.
    using ImageElement = std::function<std::string(const QString &file, const std::string &description)>;
    std::string Html(const ImageElement &image) const;

    // The code of the fenced block that is marked "language NAME". Throws ManuscriptError when there is none.
    std::string Listing(const std::string &name) const;

private:
    struct Picture {
        cmark_node *node;  // the element that stands in for it
        QString file;
        std::string description;
    };
    struct Free {
        void operator()(cmark_node *node) const { cmark_node_free(node); }
    };

    void Parse(const std::string &text);
    void TakeTitle();
    void TakeHeading(cmark_node *node);
    void TakePicture(cmark_node *node);
    void CheckLinks() const;
    [[noreturn]] void Fail(cmark_node *at, const std::string &what) const;

    std::string file_, title_, summary_;
    std::unique_ptr<cmark_node, Free> root_;
    std::vector<Heading> headings_;
    std::vector<Picture> pictures_;
    std::vector<cmark_node *> links_;
    std::set<std::string> slugs_;
};

std::string EscapeHtml(const std::string &text);
