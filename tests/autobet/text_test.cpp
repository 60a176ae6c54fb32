#include "autobet/text.h"

#include <gtest/gtest.h>

#include <limits>

namespace tarnwick {
namespace {

TEST(Text, ReadNumberTakesNumbersAndNothingElse) {
    const std::pair<const char*, double> numbers[] = {{"5", 5},      {"010", 10},   {".5", .5},
                                                      {"5.", 5},     {"+5", 5},     {"-5.25", -5.25},
                                                      {"1e3", 1000}, {"1D-2", .01}, {"2.5E+1", 25}};
    for (const auto& [text, value] : numbers) EXPECT_EQ(ReadNumber(text), value) << text;
    for (const char* text : {"", ".", "+", "-", "+-5", "e5", ".e5", "5e", "nan", "inf", "0x1f", "1,5", "5 ", "1e999",
                             "5.5.5", "d", "5-5"}) {
        EXPECT_EQ(ReadNumber(text), std::nullopt) << text;
    }
}

TEST(Text, LowerCaseKnowsWesternLettersAndKeepsTheLength) {
    EXPECT_EQ(LowerText("ABC xyz 1"), "abc xyz 1");
    EXPECT_EQ(LowerText("ÀÉÞ×ßŠŒŽŸ"), "àéþ×ßšœžÿ");
    EXPECT_EQ(LowerText("\xC3"), "\xC3");  // cut in the middle of a letter
    EXPECT_EQ(LowerText("\xE2\x82\xAC"
                        "A"),
              "\xE2\x82\xAC"
              "a");
}

/// What the replacement means, written as slowly as it is told.
std::string ReplaceSlowly(std::string text, const std::string& key, const std::string& value) {
    for (std::size_t at = text.find(key); at != std::string::npos; at = text.find(key))
        text.replace(at, key.size(), value);
    return text;
}

TEST(Text, ReplaceAllAlsoFindsWhatReplacingMakes) {
    const std::tuple<const char*, const char*, const char*> cases[] = {{" two two two ", " two ", " V056 "},
                                                                       {" # of of of ", " # of ", " # "},
                                                                       {"((()", "(", " L020 "},
                                                                       {" cs###5 ", " cs#", " cs"},
                                                                       {"aab aab", "ab", "b"},
                                                                       {"aaaabbbb", "ab", ""},
                                                                       {"xxyxyyxy", "xy", "y"},
                                                                       {"nothing", "none", "any"},
                                                                       {" a a a the a ", " a ", " "}};
    for (const auto& [text, key, value] : cases) {
        std::string replaced = text;
        const std::string expected = ReplaceSlowly(text, key, value);
        EXPECT_EQ(ReplaceAll(replaced, key, value), expected != text);
        EXPECT_EQ(replaced, expected) << text;
    }
}

TEST(Text, ReplaceAllAgreesWithTheSlowWayOnAllShortTexts) {
    const std::pair<const char*, const char*> rows[] = {
        {"ab", "b"}, {"aba", "b"}, {"ab", "ba"}, {"ba", ""}, {" a ", " b "}};
    for (const auto& [key, value] : rows) {
        for (int n = 0; n < 59049; ++n) {  // 3^10 texts of ten letters
            std::string text;
            for (int i = 0, rest = n; i < 10; ++i, rest /= 3) text += "ab "[rest % 3];
            std::string replaced = text;
            ReplaceAll(replaced, key, value);
            ASSERT_EQ(replaced, ReplaceSlowly(text, key, value)) << "[" << text << "] " << key;
        }
    }
}

}  // namespace
}  // namespace tarnwick
