// Code page 1252 from and to UTF-8.

#include "files/codepage.h"

#include <gmock/gmock.h>

#include <string>

namespace tarnwick {
namespace {

TEST(CodePage, EveryByteSurvivesTheWayToUtf8AndBack) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
    const std::string utf8 = FromCodePage(all);
    EXPECT_TRUE(IsUtf8(utf8));
    const Encoded back = ToCodePage(utf8);
    EXPECT_EQ(back.Bytes, all);
    EXPECT_EQ(back.Unencodable, 0u);
}

TEST(CodePage, HasItsCharactersAtTheirPlaces) {
    const struct {
        std::string Byte, Utf8;
    } cases[] = {{"A", "A"},         {"\x7F", "\x7F"},   {"\x80", "\u20AC"}, {"\x85", "\u2026"},
                 {"\x8A", "\u0160"}, {"\x92", "\u2019"}, {"\x96", "\u2013"}, {"\x99", "\u2122"},
                 {"\x9F", "\u0178"}, {"\xA0", "\u00A0"}, {"\xE9", "\u00E9"}, {"\xFF", "\u00FF"},
                 {"\x9E", "\u017E"}, {"\x83", "\u0192"}, {"\x8E", "\u017D"}, {"\x8D", "\xC2\x8D"}};
    for (const auto& c : cases) {
        EXPECT_EQ(FromCodePage(c.Byte), c.Utf8);
        EXPECT_EQ(ToCodePage(c.Utf8).Bytes, c.Byte);
    }
}

TEST(CodePage, CountsWhatItCannotHold) {
    const struct {
        std::string Utf8, Bytes;
        std::size_t Unencodable;
    } cases[] = {{"", "", 0},
                 {"Zoë", "Zo\xEB", 0},
                 {"\u0141\u00F3d\u017A",
                  "?\xF3"
                  "d?",
                  2},
                 {"\xC2\x80", "?", 1},  // a control character whose byte is the euro's
                 {"\U0001F3B2 7", "? 7", 1},
                 {"a\xFFz", "a?z", 1},
                 {"\xE2\x82", "??", 2}};
    for (const auto& c : cases) {
        const Encoded encoded = ToCodePage(c.Utf8);
        EXPECT_EQ(encoded.Bytes, c.Bytes);
        EXPECT_EQ(encoded.Unencodable, c.Unencodable) << c.Bytes;
    }
}

TEST(CodePage, KnowsUtf8) {
    const struct {
        std::string Text;
        bool Good;
    } cases[] = {{"", true},
                 {"\x7F", true},
                 {"\xC2\x80", true},
                 {"\xDF\xBF", true},
                 {"\xE0\xA0\x80", true},
                 {"\xED\x9F\xBF", true},
                 {"\xEE\x80\x80", true},
                 {"\xF0\x90\x80\x80", true},
                 {"\xF4\x8F\xBF\xBF", true},
                 {"\x80", false},              // no beginning
                 {"\xC1\xBF", false},          // too long a form
                 {"\xE0\x9F\xBF", false},      //
                 {"\xF0\x8F\xBF\xBF", false},  //
                 {"\xED\xA0\x80", false},      // a surrogate
                 {"\xF4\x90\x80\x80", false},  // beyond the last character
                 {"\xF5\x80\x80\x80", false},
                 {"\xFF", false},
                 {"\xC3", false},  // cut short
                 {"\xE2\x82", false},
                 {"\xF0\x9F\x8E", false},
                 {"\xC3(", false}};
    for (const auto& c : cases) EXPECT_EQ(IsUtf8(c.Text), c.Good) << testing::PrintToString(c.Text);
}

TEST(CodePage, FieldsLoseTheirPaddingOnly) {
    using namespace std::string_literals;
    const struct {
        std::string Field, Text;
    } cases[] = {{"", ""},         {"    ", ""},        {"\0\0\0"s, ""},  {" a b  ", " a b"},
                 {"a\0 \0"s, "a"}, {"a\r\nb ", "a  b"}, {"a\0b"s, "a b"}, {"\x93g\xFC\x94  ", "\u201Cg\u00FC\u201D"}};
    for (const auto& c : cases) EXPECT_EQ(FieldText(c.Field), c.Text);
}

}  // namespace
}  // namespace tarnwick
