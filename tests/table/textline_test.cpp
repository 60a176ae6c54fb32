#include "table/textline.h"

#include <gtest/gtest.h>

#include <limits>

namespace tarnwick {
namespace {

/// Each kind of piece comes to lie before, across and behind the end of what a line of common length holds.
TEST(TextLine, PiecesJoinAtAnyLength) {
    constexpr currency lowest{std::numeric_limits<std::int64_t>::min()};
    for (std::size_t length = 0; length <= 200; ++length) {
        const std::string ahead(length, 'x');
        TextLine line;
        line << ahead << " lost " << lowest << " on " << std::string_view("Place 6") << " #"
             << std::numeric_limits<std::int64_t>::min() << "";
        EXPECT_EQ(line.Text(), ahead + " lost $-922337203685477.5808 on Place 6 #-9223372036854775808");
    }
    EXPECT_EQ(TextLine().Text(), "");
}

}  // namespace
}  // namespace tarnwick
