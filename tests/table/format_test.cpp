#include "table/format.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace tarnwick {
namespace {

constexpr currency Largest{std::numeric_limits<std::int64_t>::max()};
constexpr currency Lowest{std::numeric_limits<std::int64_t>::min()};

TEST(Format, AmountsInMessagesAndInLogs) {
    struct Case {
        currency Amount;
        const char* Message;
        const char* Log;
    };
    const Case cases[] = {
        {Dollars(0), "0", "0"},
        {currency{5'000}, ".50", "0.5"},
        {currency{-5'000}, "-.50", "-0.5"},
        {currency{1}, ".0001", "0.0001"},
        {currency{10'100}, "1.01", "1.01"},
        {currency{12'345}, "1.2345", "1.2345"},
        {currency{12'340}, "1.234", "1.234"},
        {Dollars(7), "7", "7"},
        {Dollars(999), "999", "999"},
        {Dollars(1'000), "1,000", "1000"},
        {Dollars(-1'234'567), "-1,234,567", "-1234567"},
        {currency{-12'345'678'900}, "-1,234,567.89", "-1234567.89"},
        {Largest, "922,337,203,685,477.5807", "922337203685477.5807"},
        {Lowest, "-922,337,203,685,477.5808", "-922337203685477.5808"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(FormatCommas(c.Amount), c.Message);
        EXPECT_EQ(PlainAmount(c.Amount), c.Log);
    }
}

TEST(Format, PatternsOfNumbers) {
    struct Case {
        double Value;
        const char* Pattern;
        const char* Text;
    };
    const Case cases[] = {
        // "#" prints no zero, "0" does; in the whole part both take all the digits there are
        {0.5, "#,#.0###;-#,#;0", ".5"},
        {0.5, "#,0.0###;-#,#;0", "0.5"},
        {1234567.25, "#,#.00", "1,234,567.25"},
        {7, "000", "007"},
        {7, "#,##0.00", "7.00"},
        {1234, "0,000", "1,234"},
        {7, "0,000", "0,007"},
        {12, "#,#0", "12"},
        {123.4, "#,#.0##;-#,#;0", "123.4"},
        // halves go away from zero, on the decimal that the number shows
        {2.5, "0", "3"},
        {-2.5, "0", "-3"},
        {3.5, "0", "4"},
        {1.005, "0.00", "1.01"},
        {201.0 / 200.0, "0.00", "1.01"},
        {1.00499, "0.00", "1.00"},
        {0.285, "0.0#", "0.29"},
        {999.95, "#,#.0;-#,#;0", "1,000.0"},
        {99999.5, "#,#", "100,000"},
        // sections
        {-4.25, "#,#.00;-#,#;0", "-4"},
        {-1234.5, "#,#.00;-#,#.00;0.00", "-1,234.50"},
        {-4.25, "0.0#", "-4.25"},
        {-4.25, "0.0#;;zero", "-4.25"},
        {0, "#,#;-#,#;none", "none"},
        {0.004, "#,#.00;-#,#.00;0.00", "0.00"},
        {0.004, "#,#.0;-#,#;0", "0"},
        {-0.4, "#,#.00;-#,#;0", "0"},
        {-0.0, "0.0", "0.0"},
        {-0.004, "0.00", "0.00"},
        {0.00004, "#,#.0###;-#,#;0", "0"},
        {0, "0.0#;-0.0#", "0.0"},
        {0, "#", ""},
        // other characters stand; a point with nothing behind it doesn't
        {12.5, "#,0.0###%;-#,#%;0%", "12.5%"},
        {0, "#,0.0###%;-#,#%;0%", "0%"},
        {1.25, "+#,0.000;-#,0.000;#,0.000", "+1.250"},
        {-2, "0.0# %", "-2.0 %"},
        {2, "#,0.##;-#,0.##;0", "2"},
        {-0.5, "0.########;-0.########;0", "-0.5"},
        // far ends
        {1e21, "#,#", "1,000,000,000,000,000,000,000"},
        {5e-324, "0.0", "0.0"},
        {std::numeric_limits<double>::quiet_NaN(), "0", "nan"},
        {-std::numeric_limits<double>::infinity(), "0", "-inf"},
    };
    for (const Case& c : cases) EXPECT_EQ(FormatPattern(c.Value, c.Pattern), c.Text) << c.Value << " " << c.Pattern;
    EXPECT_EQ(FormatPattern(std::numeric_limits<double>::max(), "0").size(), 309u);
    EXPECT_EQ(FormatPattern(currency{-50}, "#,#.00;-#,#.00;0.00"), "-.01");
    EXPECT_EQ(FormatPattern(currency{-49}, "#,#.00;-#,#.00;0.00"), "0.00");
    EXPECT_EQ(FormatPattern(Lowest, "#"), "-922337203685478");
}

TEST(Format, AmountsAsTyped) {
    struct Case {
        const char* Text;
        std::int64_t TenThousandths;
    };
    const Case good[] = {
        {"0", 0},
        {" 25 ", 250'000},
        {"$25", 250'000},
        {"-$2.50", -25'000},
        {"$-2.50", -25'000},
        {"+7", 70'000},
        {".5", 5'000},
        {"5.", 50'000},
        {"1,000", 10'000'000},
        {"$1,234,567.8901", 12'345'678'901},
        {"0001", 10'000},
        // the fifth place rounds half to even
        {"0.00005", 0},
        {"0.00015", 2},
        {"0.00025", 2},
        {"0.000250000001", 3},
        {"-0.00015", -2},
        {"1.99995", 20'000},
        {"922337203685477.5807", Largest.TenThousandths},
        {"-922337203685477.5808", Lowest.TenThousandths},
    };
    for (const Case& c : good) {
        const auto amount = ParseAmount(c.Text);
        ASSERT_TRUE(amount) << c.Text;
        EXPECT_EQ(amount->TenThousandths, c.TenThousandths) << c.Text;
    }
    const char* const bad[] = {"",
                               " ",
                               "$",
                               ".",
                               "-",
                               "abc",
                               "1e3",
                               "12a",
                               "1.2.3",
                               "--5",
                               "-$-5",
                               "1,00",
                               "1,0000",
                               ",100",
                               "1000,000",
                               "1,,000",
                               "1,00.5",
                               "1.000,5",
                               "5 0",
                               "0x10",
                               "nan",
                               "5-",
                               "922337203685477.5808",
                               "-922337203685477.5809",
                               "922337203685477.58075",
                               "99999999999999999999999999999999999999999999"};
    for (const char* text : bad) EXPECT_FALSE(ParseAmount(text)) << text;
}

TEST(Format, WrittenAmountsReadBack) {
    for (const std::int64_t count : {0LL, 1LL, -1LL, 9'999LL, 10'000LL, -123'456'789LL, 9'223'372'036'854'775'807LL}) {
        EXPECT_EQ(ParseAmount(PlainAmount({count})), currency{count});
        EXPECT_EQ(ParseAmount(FormatCommas({count})), currency{count});
    }
    EXPECT_EQ(ParseAmount(FormatCommas(Lowest)), Lowest);
}

/// Amounts of every length, with whole and broken parts.
TEST(Format, PlainAmountsAreThoseOfTheirPattern) {
    std::uint64_t random = 88172645463325252u;
    for (int i = 0; i < 20'000; ++i) {
        random ^= random << 13;
        random ^= random >> 7;
        random ^= random << 17;
        const std::int64_t any = static_cast<std::int64_t>(random) >> (random % 63);
        for (const currency amount : {currency{any}, currency{any / 100 * 100}, Dollars(any / CurrencyScale)}) {
            ASSERT_EQ(PlainAmount(amount), FormatPattern(amount, "0.####")) << amount.TenThousandths;
        }
    }
}

TEST(Format, WholeNumbersAndBlanks) {
    EXPECT_EQ(ParseInteger(" 42\t"), 42);
    EXPECT_EQ(ParseInteger("-2147483648"), std::numeric_limits<int>::min());
    EXPECT_EQ(ParseInteger("+5"), 5);
    for (const char* text : {"", "-", "+", "+-5", "4.0", "2147483648", "1 2", "five", "0x1"}) {
        EXPECT_FALSE(ParseInteger(text)) << text;
    }
    EXPECT_EQ(Trim(" \t a b \r\n"), "a b");
    EXPECT_EQ(Trim("   "), "");
    EXPECT_EQ(LowerCase("Don't Come 10 \xC4"), "don't come 10 \xC4");
}

}  // namespace
}  // namespace tarnwick
