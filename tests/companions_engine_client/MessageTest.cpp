#include "protocol/Message.h"

#include <gtest/gtest.h>

#include <span>

TEST(CMessage, CarriesValuesAndRefusesWhatIsCutShort) {
    std::byte room[64];
    CMessageWriter out(room);
    out.PutNumber(-5);
    out.PutReal(2.5);
    out.PutText("text");
    out.PutBlock(std::vector<uint8_t>{1, 2, 3});
    ASSERT_TRUE(out.Fits());

    CMessageReader in(std::span<std::byte>(room).first(out.Size()));
    EXPECT_EQ(in.Int(), -5);
    EXPECT_EQ(in.Real(), 2.5);
    EXPECT_EQ(in.Text(), "text");
    EXPECT_EQ(in.Block(), (std::vector<uint8_t>{1, 2, 3}));
    EXPECT_TRUE(in.IsGood());
    EXPECT_EQ(in.Text(), "");
    EXPECT_FALSE(in.IsGood());

    out.PutText(std::string(40, 'x'));
    EXPECT_FALSE(out.Fits());

    // Sizes that a damaged message claims.
    for (const int64_t size : {int64_t{-1}, int64_t{9}, INT64_MAX}) {
        CMessageWriter claim(room);
        claim.PutNumber(size);
        claim.PutNumber(0);
        CMessageReader reader(std::span<std::byte>(room).first(claim.Size()));
        EXPECT_EQ(reader.Text(), "") << size;
        EXPECT_FALSE(reader.IsGood()) << size;
    }
}
