// Hot-Keys: letters that run a script file, and the file that keeps them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

/// Texts are UTF-8.
struct HotKey {
    std::string Key;          ///< one character; only "A" to "Z" can be pressed
    std::string Description;  ///< up to 100 characters of code page 1252; others are saved as "?"
    std::string File;         ///< path of the script, up to 100 characters of code page 1252

    bool operator==(const HotKey&) const = default;
};

/// The rows in the user's order. Two may have one key: the first counts.
using HotKeyList = std::vector<HotKey>;

/// What `letter`, A..Z or a..z, runs; null when no row has it.
const HotKey* FindHotKey(const HotKeyList& list, char letter);

/// Why `key` can't be saved, or nothing: "Please enter an Auto-Bet filename to define this Hot-Key." without a file,
/// and "Path, file, or device error." for a path that the file would cut or change, which would be another file's.
std::string HotKeyRefusal(const HotKey& key);

/// The rows in the bytes of a hot-key file. The count stands in the first record; a count that is no number is 0, and
/// the list ends where the file does.
HotKeyList HotKeysFromBytes(std::string_view bytes);
/// `list` as the bytes of a hot-key file. Texts too long for their fields are cut.
std::string HotKeyFileBytes(const HotKeyList& list);

/// Reads the file `path` into `list`; returns what is wrong, or nothing. No such file is an empty list. After a fault
/// the list is as it was.
std::string LoadHotKeys(const std::string& path, HotKeyList& list);
/// Replaces the file `path`; returns what is wrong, or nothing. A list with a row that is refused isn't saved, and
/// after a fault the old file is whole.
std::string SaveHotKeys(const std::string& path, const HotKeyList& list);

}  // namespace tarnwick
