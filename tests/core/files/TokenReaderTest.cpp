// The end flag of the token reading: set by a read that runs into the end, even when it succeeds,
// as a text stream sets it. (The data-file tests cover the rest through the parsers.)
#include "files/TokenReader.h"

#include <gtest/gtest.h>

namespace velto {

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

} // namespace

} // namespace velto
