// The console's command `events`: a log of its own, its pages, the search in it.
#pragma once

#include <filesystem>
#include <string>

#include "lab/consolearguments.h"
#include "lab/consolecommands.h"
#include "stats/tablelogs.h"

namespace tarnwick::lab {

/// A folder that goes with the object.
class TemporaryFolder {
  public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    const std::string& Path() const { return Folder; }

  private:
    std::string Folder;
};

/// The Events Log of a console. Without a file that the user names it lies in a folder that goes at the end, as the
/// reference always does. Sessions Logs are none of its business.
class ConsoleLog : public TableLogs {
  public:
    explicit ConsoleLog(Table& t);
    ~ConsoleLog() override;
    ConsoleLog(const ConsoleLog&) = delete;
    ConsoleLog& operator=(const ConsoleLog&) = delete;

    void SessionEnded(Table&, int) override {}
    void EraseSessionsLog(Table&, int) override {}

    std::string Wanted;  ///< what was looked for last

  private:
    ConsoleLog(Table& t, std::unique_ptr<TemporaryFolder> folder);

    Table& T;
    std::unique_ptr<TemporaryFolder> Folder;
};

/// Switches all eight kinds of event on.
void RecordAllEvents(Table& t);

std::string DoEvents(Console& c, Arguments& a);
std::string DoLog(Console& c, Arguments& a);

}  // namespace tarnwick::lab
