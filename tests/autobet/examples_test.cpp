// The betting systems in examples/: each is played for 10,000 rolls, and what came of it is compared with its golden
// text in tests/golden/examples.
//
// A system is NAME.bet for the player at position 1, or NAME.1.bet, NAME.2.bet and so on for players at one table.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>

#include "autobet/checkscript.h"
#include "autobet/scripttable.h"
#include "table/format.h"
#include "table/rundriver.h"

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

constexpr const char* ExamplesFolder = "examples";
constexpr const char* GoldenFolder = "tests/golden/examples";
constexpr int RollsToPlay = 10'000;
constexpr int ShownMessages = 6;

std::string TextOf(const fs::path& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

/// Scripts by position 1..8.
using System = std::map<int, fs::path>;

std::map<std::string, System> FindSystems() {
    std::map<std::string, System> systems;
    for (const auto& entry : fs::directory_iterator(ExamplesFolder)) {
        if (entry.path().extension() != ".bet") continue;
        const fs::path stem = entry.path().stem();
        const std::string seat = stem.extension().string();
        const bool seated = seat.size() == 2 && '1' <= seat[1] && seat[1] <= '8';
        const std::string name = seated ? stem.stem().string() : stem.string();
        systems[name][seated ? seat[1] - '0' : 1] = entry.path();
    }
    return systems;
}

/// Stands before the scripts and ends the run at a number of rolls, over all sessions that the scripts start.
class CountingHost final : public ScriptHost {
  public:
    explicit CountingHost(AutoBets& scripts) : Behind(scripts) {}
    bool CompileAll(Table& t) override { return Behind.CompileAll(t); }
    void RunAll(Table& t) override {
        Behind.RunAll(t);
        if (++Rolls == RollsToPlay) StopAutoRoll(t);
    }
    std::string NameRefusal(const Table& t, const std::string& name, int exceptPosition) override {
        return Behind.NameRefusal(t, name, exceptPosition);
    }
    void SwapPositions(Table& t, int p, int q) override { Behind.SwapPositions(t, p, q); }
    void NameChanged(Table& t) override { Behind.NameChanged(t); }

    int Rolls = 0;

  private:
    AutoBets& Behind;
};

/// Counts the sessions that ended.
struct SessionCounter : SilentScreen {
    int Ended = 0;
    void SessionEnded(int p) override { Ended += p == 1 ? 1 : 0; }
};

std::string Money(currency amount) { return FormatCommas(amount); }

std::string PlayerText(const Table& t, int p) {
    constexpr int wagers = 0, wins = 1, losses = 2, count = 1, sum = 2;
    const int pos = p + Positions * Scope::All;
    const auto stat = [&](int kind, int n) { return SumBetStats(t, kind, pos, 1, Row::LastBet, n); };
    const auto number = [&](int kind) { return Money(stat(kind, count)); };
    std::ostringstream out;
    out << t.PlayerName[static_cast<std::size_t>(p)] << "\n";
    out << "  bankroll  " << Money(t.Bankroll[static_cast<std::size_t>(p)]) << "\n";
    out << "  decided   " << number(wagers) << " bets of " << Money(stat(wagers, sum)) << "\n";
    out << "  won       " << number(wins) << " bets, " << Money(stat(wins, sum)) << "\n";
    out << "  lost      " << number(losses) << " bets, " << Money(stat(losses, sum)) << "\n";
    out << "  net       " << Money(stat(wins, sum) - stat(losses, sum)) << "\n";
    return out.str();
}

template <class Messages>
std::string TextOfMessages(const Messages& messages) {
    std::ostringstream out;
    out << "messages " << messages.size() << "\n";
    for (std::size_t i = 0; i < messages.size() && i < ShownMessages; ++i) {
        out << "  [" << messages[i].Title << "] " << messages[i].Text << "\n";
    }
    if (messages.size() > ShownMessages) out << "  ...\n";
    return out.str();
}

/// All lines of a short file, the beginning and the end of a long one.
std::string TextOfFile(const fs::path& path) {
    const std::vector<std::string> lines = LinesOf(TextOf(path));
    std::ostringstream out;
    out << "file " << path.filename().string() << ", " << lines.size() << " lines\n";
    constexpr std::size_t head = 12, tail = 2;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (i < head || i + tail >= lines.size()) out << "  " << lines[i] << "\n";
        if (i == head && i + tail < lines.size()) out << "  ...\n";
    }
    return out.str();
}

std::string TextOfFolder(const fs::path& folder) {
    std::set<fs::path> files;
    for (const auto& entry : fs::directory_iterator(folder)) files.insert(entry.path());
    std::string out;
    for (const fs::path& file : files) out += TextOfFile(file);
    return out;
}

/// Plays a system and tells what came of it; its files go to the empty folder `output`.
std::string Play(const System& system, const fs::path& output) {
    const int players = system.rbegin()->first;
    ScriptTable table(players);
    Table& t = table.T;
    SessionCounter screen;
    t.Front = &screen;
    CountingHost host(table.Scripts);
    t.Scripts = &host;
    t.GameFolder = output.string();
    t.ReSeedNewSessions = false;  // one stream of dice for all sessions
    t.NotifyBits = 8 | 16;        // messages of scripts, also in Hyper-Drive
    for (int p = 1; p <= players; ++p) {
        SetBeginningBankroll(t, p, Dollars(100'000));
        t.BankrollStartAmount[static_cast<std::size_t>(p)] = Dollars(100'000);
    }
    SeedEverything(t, 20'011);
    for (const auto& [p, path] : system) {
        if (!table.Scripts.SetScript(t, p, LinesOf(TextOf(path)), path.filename().string())) return "not set";
        if (!table.Scripts.SetActive(t, p, true)) return "not activated";
    }
    if (!table.Scripts.Initialize(t)) return "not initialised";
    ToggleAutoRoll(t);

    std::ostringstream out;
    const int scope = Positions * Scope::All;
    out << "rolls     " << host.Rolls << "\n";
    out << "hands     " << HandCount(t, scope) << "\n";
    out << "sessions  " << screen.Ended + 1 << "\n\n";
    for (int p = 1; p <= players; ++p) out << PlayerText(t, p) << "\n";
    out << TextOfMessages(screen.Shown);
    out << TextOfFolder(output);
    return out.str();
}

bool Renews() {
    const char* renew = std::getenv("TARNWICK_RENEW_GOLDEN");
    return renew != nullptr && std::string(renew) == "1";
}

/// A folder for one test, removed at its end.
struct TemporaryFolder {
    fs::path Path;
    TemporaryFolder() {
        std::string name = (fs::temp_directory_path() / "tarnwick-examples-XXXXXX").string();
        if (mkdtemp(name.data()) != nullptr) Path = name;
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        fs::remove_all(Path, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
};

TEST(Examples, AreProperlyStructuredAndSayWhatTheyDo) {
    for (const auto& [name, system] : FindSystems()) {
        for (const auto& [p, path] : system) {
            Compilation c;
            c.Slot = p;
            c.Lines = LinesOf(TextOf(path));
            const ScriptVerdict verdict = CheckScript(c);
            EXPECT_TRUE(verdict.Proper) << path << ":" << verdict.FirstLine << ": " << verdict.Text;
            ASSERT_FALSE(c.Lines.empty()) << path;
            EXPECT_EQ(c.Lines.front().front(), '\'') << path << " begins with a comment that says what it does";
        }
    }
}

TEST(Examples, PlayAsTheirGoldenTextsTell) {
    const auto systems = FindSystems();
    EXPECT_GE(systems.size(), 10u);
    std::set<std::string> played;
    for (const auto& [name, system] : systems) {
        SCOPED_TRACE(name);
        const TemporaryFolder output;
        ASSERT_FALSE(output.Path.empty());
        const std::string summary = Play(system, output.Path);
        const fs::path golden = fs::path(GoldenFolder) / (name + ".txt");
        played.insert(golden.filename().string());
        if (Renews()) std::ofstream(golden, std::ios::binary) << summary;
        EXPECT_TRUE(fs::exists(golden)) << "run once with TARNWICK_RENEW_GOLDEN=1";
        EXPECT_EQ(TextOf(golden), summary);
    }
    for (const auto& entry : fs::directory_iterator(GoldenFolder)) {
        EXPECT_EQ(played.count(entry.path().filename().string()), 1u) << entry.path() << " belongs to no example";
    }
}

}  // namespace
}  // namespace tarnwick
