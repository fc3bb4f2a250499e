// Which text the listing bar shows, and when.
#include <sys/stat.h>

#include <filesystem>

#include "ListingProgram.h"
#include "app/StringIds.h"
#include "editor/CodeViewContainer.h"
#include "editor/CodeWindowView.h"
#include "framework/Language.h"
#include "navigation/BuildViews.h"

TEST_F(ListingProgram, FollowsBuildConfigurationAndWorkspace) {
    const std::string none = LoadText(IDS_NO_LISTING);
    EXPECT_EQ(Text(), none);
    EXPECT_EQ(Path(), scratch.Windows("blink/Debug/blink.lst"));
    EXPECT_TRUE(Listing().IsReadOnly());

    ASSERT_TRUE(program.Build());
    EXPECT_EQ(Text(), scratch.Read("blink/Debug/blink.lst"));
    EXPECT_TRUE(Listing().IsReadOnly());
    EXPECT_FALSE(Listing().GetIDEDoc()->IsModified());
    const intptr_t line = Listing().AddressTable().LineOf(0);
    ASSERT_GT(line, 0);
    EXPECT_EQ(Listing().Sci().GetLine(line).substr(0, 7), "000000 ");
    EXPECT_GT(Listing().AddressTable().Size(), 0x30u);
    EXPECT_EQ(Listing().Send(SCI_GETLEXER), SCLEX_ASM);
    EXPECT_TRUE(program.App().fileTracker.IsFileArmed(Path()));
    EXPECT_FALSE(Listing().Send(SCI_CANUNDO));

    SelectConfig("Release");
    EXPECT_EQ(Text(), none);
    EXPECT_EQ(Listing().AddressTable().Size(), 0u);
    EXPECT_TRUE(Listing().IsReadOnly());
    scratch.Write("blink/Release/blink.casm", "0012 3FF0 movlw 1\r\n");
    scratch.Write("blink/Release/blink.lst", "another\r\n");
    RefreshBuildViews();
    EXPECT_EQ(Listing().AddressTable().LineOf(0x12), 0);

    SelectConfig("Debug");
    EXPECT_EQ(Text(), scratch.Read("blink/Debug/blink.lst"));
    ASSERT_TRUE(program.App().CloseWorkspace());
    EXPECT_EQ(Text(), none);
    EXPECT_EQ(Path(), "");
    EXPECT_EQ(Listing().AddressTable().Size(), 0u);
}

TEST_F(ListingProgram, ReadsAgainOnlyWhenAsked) {
    scratch.Write("blink/Debug/blink.lst", "0001 0001 nop\r\n");
    Bar().LoadAll(true);
    EXPECT_EQ(Listing().AddressTable().LineOf(1), 0);
    scratch.Write("blink/Debug/blink.lst", "\r\n0002 0001 nop\r\n");
    Bar().LoadAll(true);
    EXPECT_EQ(Listing().AddressTable().LineOf(1), 0);

    // Others write it: no question, whatever the tracker says.
    Listing().PostMessage(kMsgFileChanged);
    Listing().PostMessage(kMsgFileDeleted);
    program.Settle();
    EXPECT_TRUE(program.Boxes().empty());

    Bar().LoadAll(false);
    EXPECT_EQ(Listing().AddressTable().LineOf(1), -1);
    EXPECT_EQ(Listing().AddressTable().LineOf(2), 1);
    EXPECT_FALSE(Listing().Send(SCI_CANUNDO)) << "old listings gather";
    int records = 0;
    for (; program.App().fileTracker.IsFileTracked(Path()); ++records) program.App().fileTracker.UntrackFile(Path());
    EXPECT_EQ(records, 1);
}

TEST_F(ListingProgram, DoesNotShowWhatItCannotRead) {
    scratch.Write("blink/Debug/blink.lst", "0001 0001 nop\r\n");
    Bar().LoadAll(false);
    std::filesystem::remove(scratch.Native("blink/Debug/blink.lst"));
    ASSERT_EQ(mkfifo(scratch.Native("blink/Debug/blink.lst").c_str(), 0600), 0);
    Bar().LoadAll(false);
    EXPECT_EQ(Text(), LoadText(IDS_NO_LISTING));
    EXPECT_FALSE(Listing().HasListing());
    EXPECT_FALSE(Listing().GetIDEDoc()->IsModified());
    EXPECT_NE(program.BuildText().find("blink.lst"), std::string::npos);
}

TEST_F(ListingProgram, KeepsBookmarksOfEachListing) {
    std::string text;
    for (int line = 0; line < 20; ++line) text += std::to_string(1000 + line) + " 0001 nop\r\n";
    scratch.Write("blink/Debug/blink.lst", text);
    Bar().LoadAll(false);
    Listing().Send(SCI_GOTOLINE, 7);
    Listing().OnCmdMsg(ID_BOOKMARK_TOGGLE, nullptr);
    ASSERT_TRUE(Has(7, kMarkerBookmark));
    Bar().LoadAll(false);
    EXPECT_TRUE(Has(7, kMarkerBookmark));

    SelectConfig("Release");
    EXPECT_EQ(Listing().Send(SCI_MARKERNEXT, 0, 0xFFFF), -1);
    Listing().OnCmdMsg(ID_BOOKMARK_TOGGLE, nullptr);  // there is no listing to mark
    EXPECT_EQ(Listing().Send(SCI_MARKERNEXT, 0, 0xFFFF), -1);
    SelectConfig("Debug");
    EXPECT_TRUE(Has(7, kMarkerBookmark));

    ASSERT_TRUE(program.App().CloseWorkspace());
    ASSERT_TRUE(program.App().OpenWorkspace(scratch.Windows("blink/blink.__c").c_str(), false));
    EXPECT_TRUE(Has(7, kMarkerBookmark));
    EXPECT_EQ(Listing().Send(SCI_MARKERNEXT, 8, 0xFFFF), -1);
}

TEST_F(ListingProgram, TellsAPositionThatItHasNot) {
    scratch.Write("blink/Debug/blink.lst", "0000 0001 nop\r\n0001 0001 nop\r\n");
    Bar().LoadAll(false);
    Listing().Send(SCI_MARKERADD, 1, kMarkerExecution);
    uint32_t pc = 5;
    EXPECT_EQ(Listing().LineOfProgramCounter(pc), -1);
    EXPECT_EQ(pc, 0u);
    Listing().ShowListingPosition();
    EXPECT_FALSE(Has(1, kMarkerExecution));
    EXPECT_EQ(program.BuildLines().back(), LoadText(IDS_NOT_IN_LISTING, {"0x0000"}));
}

namespace {

class CCountingWindow : public CCodeWindowView {
public:
    using CCodeWindowView::CCodeWindowView;
    void Load(bool) override { ++loads; }
    void Clear() override {}
    static inline int loads = 0;
};

}  // namespace

TEST_F(ListingProgram, HasATabForWhatTheToolsuiteSupports) {
    const auto make = [](QWidget *parent) -> CCodeWindowView * { return new CCountingWindow(parent); };
    Bar().OfferCodeWindow(1, IDS_BAR_STACK, make);
    Bar().OfferCodeWindow(3, IDS_BAR_STACK, make);  // of this type the assembler has none
    Bar().UpdateCodeWindowTabs();
    std::vector<std::string> captions;
    for (int tab = 0; tab < Bar().Container().TabCount(); ++tab) captions.push_back(Bar().Container().TabCaption(tab));
    EXPECT_EQ(captions, (std::vector<std::string>{LoadText(IDS_TAB_LISTING), LoadText(IDS_TAB_CALL_TREE),
                                                  LoadText(IDS_TAB_FUNCTIONS), LoadText(IDS_BAR_STACK)}));
    EXPECT_EQ(CCountingWindow::loads, 1);
    EXPECT_EQ(Bar().Container().GetActiveTab(), &Listing());
    program.App().CloseWorkspace();
    EXPECT_EQ(Bar().Container().TabCount(), 1);
}
