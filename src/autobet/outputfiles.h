// The files that scripts write, one a player at a time.
#pragma once

#include <array>
#include <fstream>
#include <string>
#include <string_view>

#include "table/bets.h"

namespace tarnwick {

/// `name` as a path: slashes of either kind; a relative name lies in `folder` ("" the current one). Empty when a
/// relative name leads out of the folder by "..", or when `name` is empty.
std::string PathInFolder(const std::string& folder, std::string_view name);

/// Lines are kept until Flush, so that a run writes once a roll.
class ScriptOutputs {
  public:
    /// Makes `path` the file of position p 1..8, created when missing; `clear` empties it first. False when it can't be
    /// opened: p then has no file.
    bool Open(int p, const std::string& path, bool clear);
    bool IsOpen(int p) const { return !Files[static_cast<std::size_t>(p)].Path.empty(); }
    /// Adds `text` to the open file of p.
    void Write(int p, std::string_view text);
    /// Hands everything pending to the system. False when something could not be written; it is lost.
    bool Flush();
    /// Flushes, and forgets the file of p.
    void Close(int p);
    /// The files of two positions change places.
    void Swap(int p, int q);

  private:
    struct File {
        std::string Path;
        std::string Pending;
        std::ofstream Stream;
    };
    bool FlushFile(File& file);
    std::array<File, Positions> Files;
    bool AnyPending = false;
};

}  // namespace tarnwick
