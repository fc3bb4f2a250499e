#include "widgets/ReadableColour.h"

#include <gtest/gtest.h>

TEST(ReadableColour, StandsOutFromItsGround) {
    const QColor grounds[] = {Qt::white, QColor(0x1e, 0x1f, 0x22), QColor(0x2f, 0x65, 0xca), QColor(0x30, 0x8c, 0xc6),
                              QColor(0x77, 0x77, 0x77)};
    const QColor colours[] = {Qt::red, Qt::green, Qt::blue, Qt::black, Qt::white, QColor(0x30, 0x8c, 0xc6)};
    for (const QColor &ground : grounds)
        for (const QColor &colour : colours) {
            const QColor shown = ReadableColour(colour, ground);
            EXPECT_GE(ContrastOf(shown, ground), 4.5)
                << qPrintable(colour.name()) << " on " << qPrintable(ground.name());
            EXPECT_EQ(shown == colour, ContrastOf(colour, ground) >= 4.5);
        }
    EXPECT_NEAR(ContrastOf(Qt::black, Qt::white), 21, 0.01);
    const QColor red = ReadableColour(Qt::red, QColor(0x1e, 0x1f, 0x22));
    EXPECT_GT(red.red(), red.green() + 100);  // is still red
}
