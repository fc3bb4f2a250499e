// Printing from the command to the paper.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QProgressDialog>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include "Recorder.h"
#include "app/Settings.h"
#include "app/StringIds.h"
#include "editor/IDEDoc.h"
#include "editor/IDEView.h"
#include "framework/Language.h"
#include "framework/MDITabs.h"
#include "framework/PrintPreviewDlg.h"
#include "framework/Printing.h"
#include "framework/Text.h"
#include "support/Program.h"

namespace {

std::string Lines(int count) {
    std::string text;
    for (int i = 0; i + 1 < count; ++i) text += "line " + std::to_string(i) + "\r\n";
    return text;  // the last one is empty
}

class Printing : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(program.Start()); }
    void TearDown() override {
        for (const std::string &box : program.Unexpected()) ADD_FAILURE() << "unexpected: " << box;
        EXPECT_EQ(program.AnswersLeft(), 0u);
        EXPECT_TRUE(TabsShow());  // however the printing ended
    }

    CIDEView &Open(const std::string &text) {
        scratch.Write("main.c", text);
        program.App().OpenDocumentFile(scratch.Windows("main.c"));
        program.Settle();
        return *program.ActiveView();
    }
    bool TabsShow() {
        for (QTabBar *bar : program.Frame().findChildren<QTabBar *>())
            if (dynamic_cast<CMDITabs *>(bar)) return bar->isVisible();
        return false;
    }

    // For the print dialog to come: into this PDF file.
    void AnswerPdf(const std::string &path) {
        program.AnswerDialog([path](QWidget &window) {
            auto &dialog = dynamic_cast<QPrintDialog &>(window);
            dialog.printer()->setOutputFormat(QPrinter::PdfFormat);
            dialog.printer()->setOutputFileName(ToQString(path));
            dialog.printer()->setPageSize(QPageSize(QPageSize::A4));
            dialog.done(QDialog::Accepted);
        });
    }
    size_t PagesIn(const std::string &name) {
        const std::string pdf = scratch.Read(name);
        size_t count = 0;
        for (size_t at = pdf.find("/Type /Page\n"); at != std::string::npos; at = pdf.find("/Type /Page\n", at + 1))
            ++count;
        return count;
    }

    CScratch scratch;
    CProgram program{scratch};
};

}  // namespace

TEST_F(Printing, DrawsHeaderBodyAndFooterOfEachPage) {
    WriteUserInt("UserColorScheme", "TabSize", 3);
    WriteUserInt("UserColorScheme", "FontSize", 10);
    WriteUserString("Margins", "Footer", "Page &P of &Q");
    WriteUserInt("Margins", "FAlignment", 0);
    CIDEView &view = Open("\tgrün &x\r\n" + std::string(15000, 'w') + "\r\n" + Lines(200));
    QPrinter printer(QPrinter::HighResolution);
    CPrintInfo info(printer);
    CPrintDC dc{{96, 96, 210, 297}, nullptr};
    view.OnBeginPrinting(dc, info);
    EXPECT_FALSE(TabsShow());
    // 246 mm between the margins are 77 lines of 12 pixels.
    EXPECT_EQ(info.maxPage, 3);
    CRecorder recorder;
    QPainter painter(&recorder);
    dc.painter = &painter;
    view.OnPrint(dc, info);
    std::vector<DrawnText> first;
    first.swap(recorder.texts);
    info.curPage = 2;
    view.OnPrint(dc, info);
    painter.end();
    view.OnEndPrinting(dc, info);

    ASSERT_EQ(first.size(), 77u);
    EXPECT_EQ(first[0].text, ToQString(scratch.Native("main.c")));
    EXPECT_GT(first[0].at.x(), 110);  // centred
    EXPECT_NEAR(first[0].at.y(), 96 + 6, 6);
    EXPECT_EQ(first[1].text, "   grün &x");
    EXPECT_EQ(first[1].at.x(), 96);
    EXPECT_NEAR(first[1].at.y() - first[0].at.y(), 12, 1);
    EXPECT_LT(first[2].text.size(), 4000);
    EXPECT_EQ(first[75].text, "line 72");
    EXPECT_EQ(first[76].text, "Page 1 of &Q");
    EXPECT_EQ(first[76].at.x(), 96);
    EXPECT_NEAR(first[76].at.y(), 1122 - 96 - 6, 6);
    EXPECT_EQ(recorder.texts[1].text, "line 73");
    EXPECT_EQ(recorder.texts.back().text, "Page 2 of &Q");
}

TEST_F(Printing, BringsAllLinesToThePaper) {
    Open(Lines(154));  // two pages of 77 lines, were there no header and footer
    AnswerPdf(scratch.Native("a.pdf"));
    program.Command(ID_FILE_PRINT);
    EXPECT_EQ(PagesIn("a.pdf"), 3u);
    WriteUserString("Margins", "Header", "");
    WriteUserString("Margins", "Footer", "");
    AnswerPdf(scratch.Native("a.pdf"));
    program.Command(ID_FILE_PRINT);  // reads the settings anew
    EXPECT_EQ(PagesIn("a.pdf"), 2u);
}

TEST_F(Printing, TellsAFileThatCantBeWritten) {
    Open(Lines(5));
    for (const std::string &path : {scratch.Native("no such folder/a.pdf"), std::string("/dev/full")}) {
        AnswerPdf(path);
        program.Answer(IDOK);
        program.Command(ID_FILE_PRINT);
        EXPECT_EQ(program.Boxes().back(), LoadText(IDS_PRINT_FAILED)) << path;
    }
}

TEST_F(Printing, OfALongTextCanBeCancelled) {
    Open(Lines(200000));
    bool ticked = false;
    QTimer::singleShot(0, &program.Frame(), [&ticked] { ticked = true; });
    AnswerPdf(scratch.Native("long.pdf"));
    program.AnswerDialog([this](QWidget &window) {
        EXPECT_FALSE(TabsShow());
        dynamic_cast<QProgressDialog &>(window).cancel();
    });
    program.Command(ID_FILE_PRINT);
    EXPECT_TRUE(ticked);
    EXPECT_FALSE(scratch.Exists("long.pdf"));
}

TEST_F(Printing, DirectNeedsAPrinter) {
    if (!QPrinterInfo::availablePrinterNames().isEmpty()) GTEST_SKIP() << "it would print";
    Open(Lines(5));
    program.Answer(IDOK);
    program.Command(ID_FILE_PRINT_DIRECT);
    EXPECT_EQ(program.Boxes().back(), LoadText(IDS_NO_PRINTER));
}

TEST_F(Printing, PreviewShowsAnyPageAndGoesOnToPrint) {
    Open(Lines(200000));
    program.AnswerDialog([this](QWidget &window) {
        auto &preview = dynamic_cast<CPrintPreviewDlg &>(window);
        EXPECT_FALSE(TabsShow());
        const int pages = preview.findChild<QSpinBox *>()->maximum();
        EXPECT_GT(pages, 2000);
        preview.ShowPage(2);
        EXPECT_EQ(preview.Page(), 2);
        preview.ShowPage(0);
        EXPECT_EQ(preview.Page(), 1);
        const QImage first = preview.grab().toImage();
        preview.ShowPage(pages);
        EXPECT_NE(preview.grab().toImage(), first);
        preview.findChildren<QToolButton *>().front()->click();  // print
        if (preview.isVisible()) preview.reject();  // a failure, seen by the answer that is left
    });
    program.AnswerDialog([](QWidget &window) { dynamic_cast<QPrintDialog &>(window).reject(); });
    program.Command(ID_FILE_PRINT_PREVIEW);
}

TEST_F(Printing, TakesThePageSetupOfTheUser) {
    Open("");
    const auto inDialog = [this](const std::function<void(QWidget &)> &act, QDialogButtonBox::StandardButton end) {
        program.AnswerDialog([&act, end](QWidget &window) {
            act(window);
            window.findChild<QDialogButtonBox *>()->button(end)->click();
        });
        program.Command(ID_PAGE_MARGINS);
    };
    const auto edit = [](QWidget &window) {
        const auto margins = window.findChildren<QDoubleSpinBox *>();
        for (int i = 0; i < 4; ++i) margins[i]->setValue(i + 0.25);
        window.findChild<QComboBox *>()->setCurrentIndex(1);
        const auto buttons = window.findChildren<QToolButton *>();
        std::vector<QToolButton *> codes;
        for (QToolButton *button : buttons)
            if (button->menu()) codes.push_back(button);
        ASSERT_EQ(codes.size(), 2u);
        codes[0]->menu()->actions().value(1)->trigger();  // the page number to the header
        codes[1]->menu()->actions().value(3)->trigger();  // the time to the footer
        window.findChildren<QRadioButton *>().value(2)->click();
        window.findChildren<QRadioButton *>().value(3)->click();
    };
    inDialog(edit, QDialogButtonBox::Cancel);
    EXPECT_FALSE(HasUserSection("Margins"));
    inDialog(edit, QDialogButtonBox::Ok);
    const std::pair<const char *, const char *> texts[] = {
        {"Unit", "mm"},        {"Top", "0.250000"}, {"Bottom", "1.250000"}, {"Left", "2.250000"},
        {"Right", "3.250000"}, {"Header", "&F&P"},  {"Footer", "&P&T"}};
    for (const auto &[key, value] : texts) EXPECT_EQ(GetUserString("Margins", key, "missing"), value) << key;
    EXPECT_EQ(GetUserInt("Margins", "HAlignment", -1), 2);
    EXPECT_EQ(GetUserInt("Margins", "FAlignment", -1), 0);
}
