#include "HtmlPage.h"

#include <QFile>
#include <QImage>

namespace {

constexpr const char *kStyle = R"(
:root { --text: #1f2328; --soft: #59636e; --page: #ffffff; --code: #f3f5f7; --line: #d1d9e0; --link: #0860ca; }
@media (prefers-color-scheme: dark) {
  :root { --text: #e2e5e9; --soft: #9aa4ae; --page: #16181c; --code: #22262c; --line: #3a4049; --link: #6cabff; }
}
:root { color-scheme: light dark; }
* { box-sizing: border-box; }
body { margin: 0 auto; padding: 2rem 1.25rem 4rem; max-width: 52rem; background: var(--page); color: var(--text);
  font: 1rem/1.6 system-ui, "DejaVu Sans", sans-serif; overflow-wrap: break-word; }
h1 { font-size: 2rem; line-height: 1.25; margin: 0 0 .5rem; }
h2 { font-size: 1.45rem; margin: 2.5rem 0 .75rem; padding-bottom: .25rem; border-bottom: 1px solid var(--line); }
h3 { font-size: 1.15rem; margin: 1.75rem 0 .5rem; }
h2, h3 { line-height: 1.3; break-after: avoid; }
.summary, .version { color: var(--soft); margin: 0 0 .5rem; }
.summary { font-size: 1.1rem; }
a { color: var(--link); }
nav { margin: 1.5rem 0; padding: .75rem 1.25rem; border: 1px solid var(--line); border-radius: 6px; }
nav ul { margin: 0; padding: 0 0 0 1.1rem; }
nav > ul { padding: 0; list-style: none; }
nav a { text-decoration: none; }
nav a:hover { text-decoration: underline; }
code { font: .875em/1.5 "DejaVu Sans Mono", ui-monospace, monospace; background: var(--code); border-radius: 4px;
  padding: .1em .3em; }
pre { background: var(--code); border: 1px solid var(--line); border-radius: 6px; padding: .75rem 1rem;
  overflow-x: auto; tab-size: 4; }
pre code { background: none; padding: 0; }
table { border-collapse: collapse; margin: 1rem 0; width: 100%; }
th, td { border: 1px solid var(--line); padding: .35rem .6rem; text-align: left; vertical-align: top; }
th { background: var(--code); }
img { max-width: 100%; height: auto; border: 1px solid var(--line); border-radius: 4px; }
@media print { body { max-width: none; } nav { break-after: page; } pre, tr, img { break-inside: avoid; } }
)";

std::string Image(const QString &name, const std::string &description) {
    QFile file(name);
    const QByteArray bytes = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    return "<img src=\"data:image/png;base64," + bytes.toBase64().toStdString() + "\" alt=\"" +
           EscapeHtml(description) + "\">";
}

std::string Contents(const std::vector<Heading> &headings) {
    std::string html;
    int level = 1;
    for (const Heading &heading : headings) {
        if (heading.level > 3) continue;
        for (; level < heading.level; ++level) html += "<ul>";
        for (; level > heading.level; --level) html += "</ul>";
        html += "<li><a href=\"#" + heading.slug + "\">" + EscapeHtml(heading.text) + "</a>\n";
    }
    for (; level > 1; --level) html += "</ul>";
    return html;
}

}  // namespace

QByteArray MakeHtmlPage(const CManuscript &manuscript, const std::string &version) {
    const std::string title = EscapeHtml(manuscript.Title()), summary = EscapeHtml(manuscript.Summary());
    std::string page = "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n";
    page += "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n";
    page += "<title>" + title + "</title>\n<style>" + kStyle + "</style>\n</head>\n<body>\n";
    page += "<h1>" + title + "</h1>\n<p class=\"summary\">" + summary + "</p>\n";
    page += "<p class=\"version\">Version " + EscapeHtml(version) + "</p>\n";
    page += "<nav aria-label=\"Contents\">\n" + Contents(manuscript.Headings()) + "</nav>\n<main>\n";
    page += manuscript.Html(Image) + "</main>\n</body>\n</html>\n";
    return QByteArray::fromStdString(page);
}
