#include "Manuscript.h"

#include <cmark-gfm-core-extensions.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <cstdlib>

namespace {

struct FreeText {
    void operator()(char *text) const { std::free(text); }
};

// Calls `visit` for each node under `root` on the way in. The nodes may be changed meanwhile, as they are collected first.
void ForEach(cmark_node *root, const std::function<void(cmark_node *)> &visit) {
    std::vector<cmark_node *> nodes;
    cmark_iter *walk = cmark_iter_new(root);
    for (cmark_event_type event; (event = cmark_iter_next(walk)) != CMARK_EVENT_DONE;)
        if (event == CMARK_EVENT_ENTER) nodes.push_back(cmark_iter_get_node(walk));
    cmark_iter_free(walk);
    for (cmark_node *node : nodes) visit(node);
}

std::string PlainText(cmark_node *root) {
    std::string text;
    ForEach(root, [&](cmark_node *node) {
        const cmark_node_type type = cmark_node_get_type(node);
        if (type == CMARK_NODE_TEXT || type == CMARK_NODE_CODE) text += cmark_node_get_literal(node);
        if (type == CMARK_NODE_SOFTBREAK || type == CMARK_NODE_LINEBREAK) text += ' ';
    });
    return text;
}

std::string Slug(const std::string &text) {
    std::string slug;
    for (const QChar c : QString::fromStdString(text).toLower()) {
        if (c.isLetterOrNumber() || c == '-' || c == '_') slug += QString(c).toStdString();
        if (c == ' ') slug += '-';
    }
    return slug;
}

int LineOf(cmark_node *node) {
    while (node && cmark_node_get_start_line(node) == 0) node = cmark_node_parent(node);
    return node ? cmark_node_get_start_line(node) : 1;
}

}  // namespace

CManuscript::CManuscript(const std::string &file) : file_(file) {
    QFile source(QString::fromStdString(file));
    if (!source.open(QIODevice::ReadOnly))
        throw ManuscriptError(file + ": can't be read: " + source.errorString().toStdString());
    Parse(source.readAll().toStdString());
    TakeTitle();
    ForEach(root_.get(), [this](cmark_node *node) {
        const cmark_node_type type = cmark_node_get_type(node);
        if (type == CMARK_NODE_HEADING) TakeHeading(node);
        if (type == CMARK_NODE_IMAGE) TakePicture(node);
        if (type == CMARK_NODE_LINK) links_.push_back(node);
    });
    CheckLinks();
}

void CManuscript::Parse(const std::string &text) {
    cmark_gfm_core_extensions_ensure_registered();
    cmark_parser *parser = cmark_parser_new(CMARK_OPT_VALIDATE_UTF8);
    cmark_parser_attach_syntax_extension(parser, cmark_find_syntax_extension("table"));
    cmark_parser_feed(parser, text.data(), text.size());
    root_.reset(cmark_parser_finish(parser));
    cmark_parser_free(parser);
}

void CManuscript::TakeTitle() {
    cmark_node *heading = cmark_node_first_child(root_.get());
    cmark_node *paragraph = heading ? cmark_node_next(heading) : nullptr;
    if (!heading || cmark_node_get_type(heading) != CMARK_NODE_HEADING || cmark_node_get_heading_level(heading) != 1)
        Fail(root_.get(), "a document begins with its title, a heading of level 1");
    if (!paragraph || cmark_node_get_type(paragraph) != CMARK_NODE_PARAGRAPH)
        Fail(heading, "a paragraph that says what the document is for stands under its title");
    title_ = PlainText(heading);
    summary_ = PlainText(paragraph);
    cmark_node_free(heading);
    cmark_node_free(paragraph);
}

void CManuscript::TakeHeading(cmark_node *node) {
    const int level = cmark_node_get_heading_level(node);
    const int before = headings_.empty() ? 1 : headings_.back().level;
    if (level == 1) Fail(node, "a document has one title only");
    if (level > before + 1) Fail(node, "a heading leaves out a level");
    const std::string text = PlainText(node), slug = Slug(text);
    if (!slugs_.insert(slug).second) Fail(node, "two headings give the same link: #" + slug);
    headings_.push_back({level, text, slug});
    cmark_node *anchor = cmark_node_new(CMARK_NODE_CUSTOM_INLINE);
    cmark_node_set_on_enter(anchor, ("<a id=\"" + slug + "\"></a>").c_str());
    cmark_node_prepend_child(node, anchor);
}

// Puts an element in its place whose text is set when the document is written.
void CManuscript::TakePicture(cmark_node *node) {
    const std::string url = cmark_node_get_url(node);
    const QString file = QFileInfo(QString::fromStdString(file_)).dir().filePath(QString::fromStdString(url));
    if (!QFileInfo::exists(file)) Fail(node, "the picture " + url + " is missing");
    QImageReader reader(file);
    if (reader.read().isNull())
        Fail(node, "the picture " + url + " can't be shown: " + reader.errorString().toStdString());
    const std::string description = PlainText(node);
    if (description.empty()) Fail(node, "the picture " + url + " has no description");
    cmark_node *element = cmark_node_new(CMARK_NODE_CUSTOM_INLINE);
    cmark_node_replace(node, element);
    cmark_node_free(node);
    pictures_.push_back({element, file, description});
}

void CManuscript::CheckLinks() const {
    for (cmark_node *link : links_) {
        const std::string url = cmark_node_get_url(link);
        const bool known = url.starts_with('#') ? slugs_.contains(url.substr(1)) : url.starts_with("https://");
        if (!known) Fail(link, "the link " + url + " leads nowhere");
    }
}

std::string CManuscript::Html(const ImageElement &image) const {
    for (const Picture &picture : pictures_)
        cmark_node_set_on_enter(picture.node, image(picture.file, picture.description).c_str());
    const std::unique_ptr<char, FreeText> html(cmark_render_html(root_.get(), CMARK_OPT_DEFAULT, nullptr));
    return html.get();
}

std::string CManuscript::Listing(const std::string &name) const {
    std::string code;
    bool found = false;
    ForEach(root_.get(), [&](cmark_node *node) {
        if (cmark_node_get_type(node) != CMARK_NODE_CODE_BLOCK) return;
        if (!std::string(cmark_node_get_fence_info(node)).ends_with(" " + name)) return;
        code = cmark_node_get_literal(node);
        found = true;
    });
    if (!found) throw ManuscriptError(file_ + ": there is no code marked " + name);
    return code;
}

void CManuscript::Fail(cmark_node *at, const std::string &what) const {
    throw ManuscriptError(file_ + ":" + std::to_string(LineOf(at)) + ": " + what);
}

std::string EscapeHtml(const std::string &text) {
    return QString::fromStdString(text).toHtmlEscaped().toStdString();
}
