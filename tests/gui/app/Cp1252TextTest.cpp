// The Windows-1252 boundary between model strings and widgets.
#include "base/Cp1252Text.h"

#include <gtest/gtest.h>

namespace velto {

TEST(Cp1252Text, EveryByteSurvivesTheRoundTripAndOtherCharactersAreRefusedOrReplaced) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte)
        all.push_back(char(byte));
    const QString shown = ToQString(all);
    ASSERT_EQ(shown.size(), 256);
    EXPECT_EQ(ToCp1252(shown), all);
    EXPECT_EQ(ToCp1252Lossy(shown), all);
    EXPECT_EQ(ToCp1252(QString::fromUtf8("Ω")), std::nullopt);
    EXPECT_EQ(ToCp1252Lossy(QString::fromUtf8("aΩb")), "a?b");
    EXPECT_EQ(ToCp1252Lossy(QString::fromUtf8("x😀y")), "x?y") << "one character beyond 16 bits";
    EXPECT_EQ(ToCp1252Lossy(QString(QChar(0xD800))), "?"); // a lone surrogate
}

} // namespace velto
