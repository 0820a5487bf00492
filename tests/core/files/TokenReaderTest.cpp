// The stream-like token reading under the data files: end and failure flags as a text stream sets them.
#include "files/TokenReader.h"

#include <gtest/gtest.h>

namespace {

TEST(TokenReader, ANumberOrTokenThatRunsIntoTheEndSetsTheEndFlag) {
    TokenReader numbers(" 12 -7");
    EXPECT_EQ(numbers.NextInt(), 12);
    EXPECT_FALSE(numbers.ReachedEnd());
    EXPECT_EQ(numbers.NextInt(), -7);
    EXPECT_TRUE(numbers.ReachedEnd());
    EXPECT_FALSE(numbers.Failed());

    TokenReader tokens("ab\rcd");
    EXPECT_EQ(tokens.NextToken(), "ab");
    EXPECT_FALSE(tokens.ReachedEnd());
    EXPECT_EQ(tokens.NextToken(), "cd");
    EXPECT_TRUE(tokens.ReachedEnd());
}

TEST(TokenReader, OnlyWhiteSpaceLeftFailsAtTheEnd) {
    TokenReader in("5 \r\n");
    EXPECT_EQ(in.NextInt(), 5);
    EXPECT_EQ(in.NextToken(), std::nullopt);
    EXPECT_TRUE(in.ReachedEnd());
    EXPECT_TRUE(in.Failed());
}

TEST(TokenReader, AFailedNumberStopsEveryLaterRead) {
    TokenReader in("12x 3 word");
    EXPECT_EQ(in.NextInt(), 12);
    EXPECT_EQ(in.NextInt(), std::nullopt); // "x3" is no number
    EXPECT_TRUE(in.Failed());
    EXPECT_FALSE(in.ReachedEnd());
    EXPECT_EQ(in.NextToken(), std::nullopt);
    EXPECT_EQ(in.NextInt(), std::nullopt);
}

TEST(TokenReader, BlankMarkersRoundTrip) {
    EXPECT_EQ(EncodeBlanks("a b\tc"), "a#~*b#~*c");
    EXPECT_EQ(DecodeBlanks("a#~*b#~#~*"), "a b#~ ");
    EXPECT_EQ(EncodeBlanks(""), "");
}

} // namespace
