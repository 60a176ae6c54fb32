#include "stats/sessionslog.h"

#include <algorithm>
#include <limits>

#include "files/atomicfile.h"
#include "files/record.h"
#include "stats/accumulators.h"
#include "table/format.h"

namespace tarnwick {

namespace {

constexpr std::string_view Title = "Tarnwick Sessions Log, Data Format 5.0";
constexpr std::string_view Format = "Data Format 5.0";
constexpr std::string_view NotALog = "it is no Sessions Log of this format";
constexpr std::size_t TitleLength = 92, CountAt = 92;
constexpr std::int64_t Length = RecordLength;

Record HeaderOf(std::int32_t sessions) {
    Record header;
    header.PutText(0, TitleLength, Title);
    header.PutInt32(CountAt, sessions);
    return header;
}

Record ReadRecord(const SharedFile& file, std::int64_t number) {
    std::array<char, RecordLength> bytes{};
    const std::size_t got = file.ReadAt((number - 1) * Length, bytes.data(), bytes.size());
    return Record({bytes.data(), got});
}

/// Whether the log's first session was being written when its program ended: there is no header yet.
bool IsBegun(const Record& header) {
    const std::string_view bytes = header.AllBytes();
    return std::all_of(bytes.begin(), bytes.end(), [](char c) { return c == '\0'; });
}

/// Reads how many sessions the file holds; returns what is wrong, or nothing.
std::string ReadCount(const SharedFile& file, std::int32_t& sessions) {
    sessions = 0;
    const Record header = ReadRecord(file, 1);
    if (IsBegun(header)) return {};
    if (header.Text(0, TitleLength).find(Format) == std::string_view::npos) return std::string(NotALog);
    const std::int64_t whole = std::max<std::int64_t>(file.Length() / Length - 1, 0);
    sessions = static_cast<std::int32_t>(std::clamp<std::int64_t>(header.Int32(CountAt), 0, whole));
    return {};
}

constexpr std::array<std::string_view, SessionStat::FirstStack> StatNames = {
    "# Rolls",
    "# Bets Decided",
    "# Bets Won",
    "# Bets Lost",
    "# Bets Won/Lost (Net)",
    "$ Bets Decided (Handle)",
    "$ Bets Won",
    "$ Bets Lost",
    "$ Bets Won/Lost (Net)",
    "% Won or Lost (HA)",
    "Invested bankroll",
    "Ending bankroll",
};

}  // namespace

std::string SessionStatName(int stat) {
    if (stat < SessionStat::FirstStack) return std::string(StatNames[static_cast<std::size_t>(stat)]);
    return "CheckStack #" + std::to_string(stat - SessionStat::FirstStack);
}

SessionRecord SessionRecordOf(const Table& t, int p) {
    const auto seat = static_cast<std::size_t>(p);
    const int pos = p + Positions * Scope::Session;
    constexpr int wagers = 0, wins = 1, losses = 2, count = 1, sum = 2;
    const auto total = [&](int kind, int stat) { return SumBetStats(t, kind, pos, 1, Row::LastBet, stat); };
    SessionRecord record{};
    record[SessionStat::Rolls] = Dollars(PlayerRolls(t, pos));
    record[SessionStat::BetsDecided] = total(wagers, count);
    record[SessionStat::BetsWon] = total(wins, count);
    record[SessionStat::BetsLost] = total(losses, count);
    record[SessionStat::BetsNet] = record[SessionStat::BetsWon] - record[SessionStat::BetsLost];
    const currency handle = record[SessionStat::Handle] = total(wagers, sum);
    record[SessionStat::MoneyWon] = total(wins, sum);
    record[SessionStat::MoneyLost] = total(losses, sum);
    const currency net = SaturatedSum(record[SessionStat::MoneyWon], -record[SessionStat::MoneyLost]);
    record[SessionStat::MoneyNet] = net;
    if (!IsZero(handle)) record[SessionStat::Percent] = MultiplyDivide(net, Dollars(100), handle);
    record[SessionStat::Invested] = t.BankrollInvested[seat];
    record[SessionStat::EndingBankroll] = t.Bankroll[seat];
    for (int i = SessionStat::FirstStack; i < SessionStatCount; ++i) {
        record[static_cast<std::size_t>(i)] = t.BetAmount(p, Row::FirstStack + i - SessionStat::FirstStack);
    }
    return record;
}

std::string DefaultSessionsLogName(std::string_view playerName) {
    std::string file = LowerCase(playerName) + ".slg";
    for (char& c : file) {
        if (std::string_view("\\/:*?\"<>|").find(c) != std::string_view::npos) c = '_';
    }
    return file;
}

std::string AppendSessionRecord(const std::string& path, const SessionRecord& record) {
    SharedFile file;
    std::string fault = file.OpenLocked(path);
    std::int32_t sessions = 0;
    if (fault.empty()) fault = ReadCount(file, sessions);
    if (sessions == std::numeric_limits<std::int32_t>::max()) fault = "it is full";
    Record bytes;
    for (std::size_t i = 0; i < record.size(); ++i) bytes.PutMoney(8 * i, record[i]);
    // A crash between the two loses this session alone.
    if (fault.empty()) fault = file.WriteAt((sessions + std::int64_t{1}) * Length, bytes.AllBytes());
    if (fault.empty()) fault = file.WriteAt(0, HeaderOf(sessions + 1).AllBytes());
    return fault;
}

std::string CreateSessionsLog(const std::string& path) { return ReplaceFile(path, HeaderOf(0).AllBytes()); }

std::string DeleteSessionsLog(const std::string& path) {
    SharedFile file;
    if (!FileExists(path)) return {};
    std::string fault = file.OpenLocked(path, SharedFile::Use::ChangeExisting);
    if (fault.empty()) fault = file.Remove();
    return FileExists(path) ? fault : std::string();
}

std::string DeleteSessions(const std::string& path, std::int64_t first, std::int64_t last) {
    if (first > last) std::swap(first, last);
    // The lock keeps others from adding a session to a file that is about to be replaced.
    SharedFile file;
    std::string fault = file.OpenLocked(path, SharedFile::Use::ChangeExisting);
    std::int32_t sessions = 0;
    if (fault.empty()) fault = ReadCount(file, sessions);
    if (!fault.empty()) return fault;
    if (first < 1 || last > sessions) return std::string(SessionsOutOfRange);
    std::string bytes;
    constexpr std::uintmax_t longest = std::uintmax_t{1} << 32;
    fault = ReadWholeFile(path, longest, bytes);
    if (fault.empty() && bytes.size() < static_cast<std::size_t>((sessions + std::int64_t{1}) * Length)) {
        fault = "it was cut short meanwhile";
    }
    if (!fault.empty()) return fault;
    const auto recordAt = [&bytes](std::int64_t session) { return bytes.begin() + (session * Length); };
    std::copy(recordAt(last + 1), recordAt(sessions + std::int64_t{1}), recordAt(first));
    const Record header = HeaderOf(sessions - static_cast<std::int32_t>(last - first + 1));
    std::copy(header.AllBytes().begin(), header.AllBytes().end(), bytes.begin());
    return ReplaceFile(path, bytes);
}

std::string SessionsLogRefusal(const std::string& path) {
    SharedFile file;
    std::int32_t sessions = 0;
    const std::string fault = file.Open(path, SharedFile::Use::Read);
    if (!fault.empty()) return path + ": " + fault;
    if (file.Length() >= Length && !IsBegun(ReadRecord(file, 1)) && ReadCount(file, sessions).empty()) return {};
    return path + " is either from an older version, has been corrupted, or is not a true Tarnwick Sessions Log.";
}

std::string SessionsLog::Open(const std::string& path) {
    Sessions = 0;
    File.Close();
    if (!FileExists(path)) return {};
    std::string fault = File.Open(path, SharedFile::Use::Read);
    if (fault.empty()) fault = ReadCount(File, Sessions);
    return fault;
}

void SessionsLog::Read(std::int32_t first, std::int32_t count, std::vector<SessionRecord>& records) const {
    records.clear();
    const std::int64_t wanted = std::clamp<std::int64_t>(std::int64_t{Sessions} - first + 1, 0, std::max(count, 0));
    if (wanted == 0 || first < 1) return;
    std::string bytes(static_cast<std::size_t>(wanted * Length), '\0');
    const std::size_t got = File.ReadAt(first * Length, bytes.data(), bytes.size()) / RecordLength;
    records.resize(got);
    for (std::size_t i = 0; i < got; ++i) {
        const Record record(std::string_view(bytes).substr(i * RecordLength, RecordLength));
        for (std::size_t stat = 0; stat < SessionStatCount; ++stat) records[i][stat] = record.Money(8 * stat);
    }
}

}  // namespace tarnwick
