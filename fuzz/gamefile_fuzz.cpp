// Any bytes as a game file: the table that comes of it plays, and what is saved then opens to the same bytes.
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "files/gameimage.h"
#include "table/placement.h"
#include "table/rolldice.h"
#include "table/screen.h"
#include "table/session.h"

namespace {

using namespace tarnwick;

void Require(bool holds) {
    if (!holds) std::abort();
}

std::string BytesOf(const Table& t) {
    GameImage image = ImageOf(t);
    std::vector<std::string> lost;
    return GameBytes(image, lost);
}

void Play(Table& t) {
    SilentScreen front;
    front.KeepShown = false;
    t.Front = &front;
    t.EventsLogOn = false;
    for (int roll = 0; roll < 40; ++roll) {
        for (int p = 1; p < Positions; ++p) {
            if (IsSeated(t, p)) PlaceBet(t, p, 1 + roll * 37 % Row::LastBet, Dollars(5));
        }
        PadRoll(t, 1 + roll * 5 % 6, 1 + roll * roll % 6);
    }
    t.Front = nullptr;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    static const std::unique_ptr<Table> start = [] {
        auto table = std::make_unique<Table>();
        SubMain(*table, nullptr);
        return table;
    }();
    // Past the head, so that most inputs get there.
    FormOfGame(bytes);
    GameImage image = ImageOf(*start);
    ReadGame(bytes, image);
    Table& t = TableOfImage(image);
    // Names of files are never followed, but they would be by what is logged and recorded.
    Require(t.DiceRollFileName.empty() && t.DiceFileMode == 0);
    Play(t);
    const std::string saved = BytesOf(t);
    GameImage again = ImageOf(*start);
    Require(ReadGame(saved, again));
    Require(BytesOf(TableOfImage(again)) == saved);
    return 0;
}
