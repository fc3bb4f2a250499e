// In which state a source window opens.
#include <QMdiArea>

#include "ListingProgram.h"
#include "framework/MDIChildWnd.h"

TEST_F(ListingProgram, OpensSourcesInTheStateOfTheLast) {
    const auto isMaximised = [](const CIDEView &view) { return view.GetParentFrame()->isMaximized(); };
    CIDEView &first = OpenSource("main.asm");
    EXPECT_FALSE(isMaximised(first));
    EXPECT_FALSE(program.App().childMaximised);
    first.GetParentFrame()->showMaximized();
    program.Settle();
    CIDEView &second = OpenSource("led.asm");
    EXPECT_TRUE(isMaximised(second));
    second.GetParentFrame()->showNormal();
    program.Settle();
    EXPECT_FALSE(isMaximised(OpenSource("timer.asm")));

    for (const bool maximised : {true, false}) {
        program.Frame().MDIGetActive()->setWindowState(maximised ? Qt::WindowMaximized : Qt::WindowNoState);
        program.Settle();
        program.Command(ID_WINDOW_CLOSE_ALL);
        program.Settle();
        EXPECT_EQ(isMaximised(OpenSource("main.asm")), maximised);
    }
}
