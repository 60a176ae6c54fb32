// Records of 256 bytes, byte by byte.

#include "files/record.h"

#include <gmock/gmock.h>

#include <limits>

namespace tarnwick {
namespace {

TEST(Record, LaysOutNumbersAndTexts) {
    Record record;
    record.PutInt16(0, -2);
    record.PutInt32(2, 0x01020384);
    record.PutMoney(6, currency{-10'000});
    record.PutText(14, 5, "abc");
    record.PutText(19, 2, "xyz");
    record.PutInt16(254, 0x1234);
    std::string expected = std::string("\xFE\xFF\x84\x03\x02\x01", 6) + "\xF0\xD8\xFF\xFF\xFF\xFF\xFF\xFF" + "abc  xy";
    expected.resize(254);
    expected += "\x34\x12";
    EXPECT_EQ(record.AllBytes(), expected);
}

TEST(Record, ReadsBackWhatItHolds) {
    Record record;
    for (const std::int64_t n : {std::int64_t{0}, std::int64_t{-1}, std::int64_t{0x80}, std::int64_t{0x7FFF},
                                 std::int64_t{-0x8000}, std::int64_t{0x123456789ABCDEF}, INT64_MAX, INT64_MIN}) {
        record.PutInt16(3, static_cast<std::int16_t>(n));
        record.PutInt32(5, static_cast<std::int32_t>(n));
        record.PutMoney(9, currency{n});
        EXPECT_EQ(record.Int16(3), static_cast<std::int16_t>(n));
        EXPECT_EQ(record.Int32(5), static_cast<std::int32_t>(n));
        EXPECT_EQ(record.Money(9), currency{n});
    }
}

TEST(Record, TakesWhatThereIsOfShortBytes) {
    const std::string full(300, 'x');
    EXPECT_EQ(Record(full).AllBytes(), full.substr(0, RecordLength));
    EXPECT_EQ(Record("ab").Text(0, 4), std::string_view("ab\0\0", 4));
}

}  // namespace
}  // namespace tarnwick
