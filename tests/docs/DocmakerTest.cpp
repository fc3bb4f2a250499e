#include <gtest/gtest.h>

#include <map>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFPageObjectHelper.hh>

#include "RunShell.h"
#include "support/ScratchDirectory.h"

namespace {

const std::string kHead = "# Title\n\nSummary.\n\n";
const std::string kDocmaker =
    "QT_QPA_PLATFORM=offscreen ASAN_OPTIONS=detect_leaks=0 '" DOCMAKER "' --version 7.0 ";

Ran Make(const CScratchDirectory &scratch, const std::string &file) {
    return RunShell(kDocmaker + scratch.Native("source.md") + " " + scratch.Native(file));
}

// Chapters of different lengths, so that headings come to stand at every height of a page.
std::string ManyChapters(int count) {
    std::string text = kHead;
    for (int chapter = 0; chapter < count; ++chapter) {
        const std::string number = std::to_string(chapter);
        text += "## Chapter " + number + "\n\n### Part of " + number + "\n\nSee [the first](#chapter-0).\n\n";
        for (int line = 0; line < 3 + chapter % 7; ++line) text += "- A line of the list.\n";
        text += "\n";
    }
    return text;
}

}  // namespace

TEST(Docmaker, RefusesASourceWithAWordAndMakesNothing) {
    struct {
        const char *text, *word;
    } cases[] = {
        {"![a picture](missing.png)\n", "source.md:5: the picture missing.png is missing"},
        {"![a picture](broken.png)\n", "source.md:5: the picture broken.png can't be shown"},
        {"## One\n\n[there](#two)\n", "source.md:7: the link #two leads nowhere"},
        {"[there](other.md)\n", "the link other.md leads nowhere"},
        {"## Same\n\n## Same\n", "two headings give the same link"},
        {"### Deep\n", "a heading leaves out a level"},
    };
    for (const auto &c : cases) {
        const CScratchDirectory scratch;
        scratch.Write("broken.png", "\x89PNG\r\n\x1a\n and then nothing");
        scratch.Write("source.md", kHead + c.text);
        for (const char *file : {"document.pdf", "document.html"}) {
            const Ran ran = Make(scratch, file);
            EXPECT_EQ(ran.code, 1) << c.text;
            EXPECT_NE(ran.output.find(c.word), std::string::npos) << ran.output;
            EXPECT_FALSE(scratch.Exists(file)) << c.text;
        }
    }
    const CScratchDirectory scratch;
    EXPECT_NE(Make(scratch, "document.pdf").output.find("source.md: can't be read"), std::string::npos);
}

TEST(Docmaker, MakesEqualDocumentsOfEqualSources) {
    const CScratchDirectory scratch;
    scratch.Write("source.md", ManyChapters(5));
    for (const std::string type : {".pdf", ".html"}) {
        ASSERT_EQ(Make(scratch, "first" + type).code, 0);
        sleep(1);  // times in the document would differ
        ASSERT_EQ(Make(scratch, "second" + type).code, 0);
        EXPECT_TRUE(scratch.Read("first" + type) == scratch.Read("second" + type)) << type;
        EXPECT_GT(scratch.Read("first" + type).size(), 1000u);
    }
}

// Outline, contents and page agree, and no chapter's heading stands alone at the end of a page.
TEST(Docmaker, LeadsToEveryHeading) {
    constexpr int kChapters = 40;
    const CScratchDirectory scratch;
    scratch.Write("source.md", ManyChapters(kChapters));
    const Ran made = Make(scratch, "document.pdf");
    ASSERT_EQ(made.code, 0) << made.output;

    QPDF pdf;
    pdf.processFile(scratch.Native("document.pdf").c_str());
    const auto pages = QPDFPageDocumentHelper(pdf).getAllPages();
    std::map<QPDFObjGen, int> numbers;
    size_t links = 0;
    for (size_t i = 0; i < pages.size(); ++i) {
        QPDFObjectHandle page = pages[i].getObjectHandle();
        numbers[page.getObjGen()] = static_cast<int>(i);
        if (page.hasKey("/Annots")) links += static_cast<size_t>(page.getKey("/Annots").getArrayNItems());
    }
    EXPECT_EQ(links, kChapters * 3u);  // two in the contents, one in the text

    const auto pageOf = [&](QPDFObjectHandle item) {
        return numbers.at(item.getKey("/Dest").getArrayItem(0).getObjGen());
    };
    int count = 0, before = 0;
    for (QPDFObjectHandle item = pdf.getRoot().getKey("/Outlines").getKey("/First"); !item.isNull();
         item = item.getKey("/Next"), ++count) {
        EXPECT_EQ(item.getKey("/Title").getUTF8Value(), "Chapter " + std::to_string(count));
        EXPECT_GE(pageOf(item), before);
        EXPECT_EQ(pageOf(item.getKey("/First")), pageOf(item)) << "the part's heading stands with the chapter's";
        before = pageOf(item);
    }
    EXPECT_EQ(count, kChapters);
    EXPECT_GT(before, 2);
    EXPECT_FALSE(pdf.getTrailer().getKey("/Info").hasKey("/CreationDate"));
}
