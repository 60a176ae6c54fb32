// Any bytes as a hot-key file: the list is no longer than the file, its texts are UTF-8 and fit, and what is saved
// reads back.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "autobet/hotkeys.h"
#include "files/codepage.h"

namespace {

void Require(bool holds) {
    if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tarnwick;
    const HotKeyList list = HotKeysFromBytes({reinterpret_cast<const char*>(data), size});
    Require(list.size() <= size / 256 + 1);
    for (const HotKey& row : list) {
        Require(IsUtf8(row.Key) && IsUtf8(row.Description) && IsUtf8(row.File));
        // What a file held can be saved again.
        Require(row.File.empty() || HotKeyRefusal(row).empty());
    }
    for (char letter = 'A'; letter <= 'Z'; ++letter) {
        const HotKey* const found = FindHotKey(list, letter);
        Require(found == nullptr || found->Key == std::string(1, letter));
    }
    const std::string bytes = HotKeyFileBytes(list);
    Require(bytes.size() == (list.size() + 1) * 256);
    Require(HotKeysFromBytes(bytes) == list);
    return 0;
}
