#include "table/textline.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace tarnwick {
namespace {

template <class... Piece>
std::string Joined(const Piece&... pieces) {
    const std::size_t room = RoomForAll(pieces...);
    std::string text(room + 8, '~');
    const char* end = WritePieces(text.data(), pieces...);
    EXPECT_EQ(text.substr(room), "~~~~~~~~") << "written behind the room";
    return text.substr(0, static_cast<std::size_t>(end - text.data()));
}

TEST(TextLine, PiecesOfAllKindsJoinWithinTheirRoom) {
    constexpr auto least = std::numeric_limits<std::int64_t>::min();
    const std::string ann = "Ann";
    EXPECT_EQ(Joined(ann, " lost ", currency{least}, " on ", std::string_view("Place 6"), " #", least, ""),
              "Ann lost $-922337203685477.5808 on Place 6 #-9223372036854775808");
    for (const std::int64_t number : {-1, 0, 9, 10, 12345}) {
        EXPECT_EQ(Joined(number, '.', Dollars(number)), std::to_string(number) + ".$" + std::to_string(number));
    }
    EXPECT_EQ(Joined(), "");
}

}  // namespace
}  // namespace tarnwick
