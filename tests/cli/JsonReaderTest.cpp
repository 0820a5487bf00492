// The streaming JSON reader accepts exactly what an independent JSON library accepts, whatever the
// size of its read window, and gives numbers and texts as that library would.
#include "JsonReader.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cmath>

namespace velto {
namespace {

// A piece reader over text that hands over at most window bytes a time.
JsonPieceReader Pieces(const std::string& text, size_t window) {
    return [text, window, at = size_t(0)](char* buffer, size_t size) mutable {
        const size_t count = std::min({size, window, text.size() - at});
        text.copy(buffer, count, at);
        at += count;
        return int64_t(count);
    };
}

// Whether the reader takes text as one JSON value, and its message when not.
std::string Check(const std::string& text, size_t window) {
    JsonReader reader(Pieces(text, window), window);
    reader.SkipValue();
    reader.ExpectEnd();
    return reader.Failed() ? reader.Error() : "";
}

TEST(JsonReader, AcceptsWhatAStrictJsonLibraryAcceptsInAnyWindow) {
    const std::string deep = std::string(100000, '[') + std::string(100000, ']');
    const std::vector<std::string> texts{"{}",
                                         "[]",
                                         " \t\r\n{ } ",
                                         "\xEF\xBB\xBF[1]",
                                         "\xEF\xBB[1]",
                                         "\xEF[1]",
                                         "",
                                         "{",
                                         "[1,]",
                                         "[,1]",
                                         "{\"a\":1,}",
                                         "{\"a\" 1}",
                                         "{1:2}",
                                         "{\"a\":1}x",
                                         "[1 2]",
                                         "[true,false,null]",
                                         "tru",
                                         "truex",
                                         "-0",
                                         "-",
                                         "01",
                                         "1.",
                                         ".5",
                                         "1.5e",
                                         "1e+",
                                         "1E+2",
                                         "1e400",
                                         "1e-400",
                                         "123456789012345678901234567890",
                                         "\"\\u00e4\\ud83d\\ude00\"",
                                         "\"\\ud800\"",
                                         "\"\\ud800x\"",
                                         "\"\\ud800\\u0041\"",
                                         "\"\\udc00\"",
                                         "\"\\u12\"",
                                         "\"\\x\"",
                                         "\"a\tb\"",
                                         "\"\x7F\"",
                                         "\"\xC3\xA4\"",
                                         "\"\xC0\x80\"",
                                         "\"\xC3\"",
                                         "\"\xED\xA0\x80\"",
                                         "\"\xF4\x90\x80\x80\"",
                                         "\"\xF0\x9F\x98\x80\"",
                                         "\"\xE0\x9F\xBF\"",
                                         "\"\xFF\"",
                                         std::string("\"a\0b\"", 5),
                                         "[\"unterminated",
                                         deep,
                                         deep + "]"};
    for (const std::string& text : texts) {
        const bool accepted = nlohmann::json::accept(text);
        for (const size_t window : {size_t(1), size_t(3), size_t(256 * 1024)})
            EXPECT_EQ(Check(text, window).empty(), accepted)
                << '"' << text.substr(0, 40) << "\" window " << window;
    }
}

TEST(JsonReader, NamesLineAndColumnOfTheFirstError) {
    const std::string text = "{\n  \"a\": [1,\n    2,\n    ]\n}";
    for (const size_t window : {size_t(1), size_t(5), size_t(4096)})
        EXPECT_EQ(Check(text, window), "Zeile 4, Spalte 5: Wert erwartet") << window;
    EXPECT_EQ(Check("[\"ab\ncd\"]", 2), "Zeile 1, Spalte 5: Steuerzeichen in einem Text ohne Escape-Folge");
    EXPECT_EQ(Check("{\"a\": 1", 2), "Zeile 1, Spalte 8: unerwartetes Ende der Daten");
}

TEST(JsonReader, GivesNumbersAsTheJsonLibraryReadsThem) {
    const std::vector<std::string> numbers{"0",
                                           "-0",
                                           "-12",
                                           "18446744073709551615",
                                           "18446744073709551616",
                                           "-9223372036854775808",
                                           "-9223372036854775809",
                                           "0.1",
                                           "-0.0",
                                           "1e-400",
                                           "-1e-400",
                                           "4.9e-324",
                                           "1.7976931348623157e308",
                                           "123456789012345.6",
                                           "0.30000000000000004",
                                           "1E2",
                                           "7.038531e-26"};
    for (const std::string& text : numbers) {
        const nlohmann::json expected = nlohmann::json::parse(text);
        for (const size_t window : {size_t(2), size_t(4096)}) {
            JsonReader reader(Pieces(text + " ", window), window);
            ASSERT_EQ(reader.Peek(), JsonKind::Number);
            JsonNumber number;
            reader.ReadNumber(number);
            ASSERT_FALSE(reader.Failed()) << text;
            if (expected.is_number_unsigned()) {
                EXPECT_EQ(number.kind, JsonNumber::Kind::Unsigned) << text;
                EXPECT_EQ(number.unsignedValue, expected.get<uint64_t>()) << text;
            } else if (expected.is_number_integer()) {
                EXPECT_EQ(number.kind, JsonNumber::Kind::Signed) << text;
                EXPECT_EQ(number.signedValue, expected.get<int64_t>()) << text;
            } else {
                EXPECT_EQ(number.kind, JsonNumber::Kind::Double) << text;
                const double value = expected.get<double>();
                EXPECT_EQ(number.doubleValue, value) << text;
                EXPECT_EQ(std::signbit(number.doubleValue), std::signbit(value)) << text;
            }
        }
    }
}

TEST(JsonReader, ReadsTextsAsWindows1252AndTellsWhatDoesNotFit) {
    const std::string text = "[\"\\u00e4\xC3\xBC \\u20ac\xE2\x80\x9E \\u0081\\\\\\\"\\/\\t\", \"\\u03a9 x\"]";
    for (const size_t window : {size_t(1), size_t(4096)}) {
        JsonReader reader(Pieces(text, window), window);
        std::string first, second;
        reader.Peek();
        reader.Enter();
        ASSERT_TRUE(reader.NextElement(true));
        reader.Peek();
        EXPECT_TRUE(reader.ReadText(first));
        EXPECT_EQ(first, "\xE4\xFC \x80\x84 \x81\\\"/\t");
        ASSERT_TRUE(reader.NextElement(false));
        reader.Peek();
        EXPECT_FALSE(reader.ReadText(second)); // Ω has no Windows-1252 byte
        EXPECT_EQ(second, " x");
        EXPECT_FALSE(reader.NextElement(false));
        reader.ExpectEnd();
        EXPECT_FALSE(reader.Failed()) << reader.Error();
    }
}

} // namespace
} // namespace velto
