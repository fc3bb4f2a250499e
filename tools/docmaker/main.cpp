// Makes the help documents out of their sources, at build time.
//
//   docmaker --version <version> <source.md> <document.pdf | document.html>
//   docmaker --listing <name> <source.md> <file>     the code that the source marks with this name
//
// Exit code 1, a word on the standard error and no document: something is wrong with the source. Code 2: a wrong command
// line. Equal sources give equal documents, byte for byte.
#include <QCommandLineParser>
#include <QGuiApplication>
#include <QHashFunctions>
#include <QSaveFile>
#include <cstdio>

#include "HtmlPage.h"
#include "Manuscript.h"
#include "PdfBook.h"

namespace {

constexpr int kExitFailed = 1, kExitUsage = 2;

int Usage() {
    std::fputs("usage: docmaker --version VERSION SOURCE.md DOCUMENT.pdf|DOCUMENT.html\n"
               "       docmaker --listing NAME SOURCE.md FILE\n", stderr);
    return kExitUsage;
}

// A whole file or none.
void WriteWhole(const QString &name, const QByteArray &bytes) {
    QSaveFile file(name);
    if (bytes.isEmpty() || !file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        throw std::runtime_error(name.toStdString() + ": can't be written: " + file.errorString().toStdString());
}

}  // namespace

int main(int argc, char **argv) {
    QHashSeed::setDeterministicGlobalSeed();  // the order of the fonts in a PDF is that of a hash
    QGuiApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addOptions({{"version", "", "version"}, {"listing", "", "name"}});
    if (!parser.parse(application.arguments()) || parser.positionalArguments().size() != 2) return Usage();
    const QString output = parser.positionalArguments()[1];
    const std::string version = parser.value("version").toStdString();
    try {
        const CManuscript manuscript(parser.positionalArguments()[0].toStdString());
        if (parser.isSet("listing"))
            WriteWhole(output, QByteArray::fromStdString(manuscript.Listing(parser.value("listing").toStdString())));
        else if (output.endsWith(".pdf"))
            WriteWhole(output, MakePdfBook(manuscript, version));
        else if (output.endsWith(".html"))
            WriteWhole(output, MakeHtmlPage(manuscript, version));
        else
            return Usage();
    } catch (const std::exception &error) {
        std::fprintf(stderr, "docmaker: %s\n", error.what());
        return kExitFailed;
    }
    return 0;
}
