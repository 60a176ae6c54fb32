// A table as the bytes of a game file, and a table from any bytes.
#pragma once

#include <string>
#include <string_view>

#include "files/gamecodec.h"
#include "files/gamefields.h"

namespace tarnwick {

constexpr std::string_view GameFileTitle = "Tarnwick Pro Game File, Data Format 1.0f";

/// What is stored of `t`, on a copy of it. The links to files have their names and no dates.
GameImage ImageOf(const Table& t);

/// The bytes of a game file. A link that a field of 200 bytes can't hold, or that would come back as another name, is
/// left out and its name added to `lost`.
std::string GameBytes(GameImage& image, std::vector<std::string>& lost);

/// What the first record says of the file.
enum class GameForm { Game, OtherVersion, NoGame };
GameForm FormOfGame(std::string_view bytes);

/// Reads the records of a game file (FormOfGame said so) into `image`, which holds a running table; whole groups of
/// records only. False when the bytes end too soon: what was there is in the image. The fields are as they stand, not
/// checked: TableOfImage comes next.
bool ReadGame(std::string_view bytes, GameImage& image);

/// Makes a sound table of the image, in place, and returns it: every count, index and amount within its range, players
/// recounted, pointers to empty positions dropped, masks and figures rebuilt. Links to files are not looked at.
Table& TableOfImage(GameImage& image);

/// Calls `fields` for every record of the image.
void VisitGame(GameFields& fields, GameImage& image);

/// The heading of a block in the Events Log as its code 0..7, and back. Other texts are 0.
std::int32_t EventsHeadingCode(std::string_view heading);
std::string_view EventsHeadingOf(std::int32_t code);

}  // namespace tarnwick
