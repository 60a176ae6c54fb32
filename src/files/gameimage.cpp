#include "files/gameimage.h"

#include <algorithm>
#include <array>
#include <utility>

#include "files/codepage.h"
#include "files/record.h"
#include "table/placement.h"
#include "table/players.h"

namespace tarnwick {

namespace {

std::size_t At(int i) { return static_cast<std::size_t>(i); }

constexpr std::string_view ExtensionMark = "Ext1";

constexpr std::array<std::string_view, 8> Headings = {
    "",          "    AutoBets:", "    Bankroll:", "    Bets:", "    CheckStacks:", "    Wins/losses:",
    "    Wins:", "    Losses:"};

PlayerImage ImageOfPlayer(const Table& t, const PerBet<std::int8_t, 101>& working, int p) {
    PlayerImage player;
    player.Script.Name = t.ScriptName[At(p)];
    player.Permission =
        (t.AllowActProb[At(p)] ? 1 : 0) | (t.AllowAct4Others[At(p)] ? 2 : 0) | (t.AllowReset[At(p)] ? 4 : 0);
    for (int row = 0; row < RowCount201; ++row) {
        player.BetAmount[At(row)] = t.BetAmount(p, row);
        player.PrevBetAmount[At(row)] = t.PrevBetAmount(p, row);
        player.BetAfterRoll[At(row)] = t.BetAfterRoll(p, row);
    }
    player.PrevBetAmount[0] = player.BetAfterRoll[0] = t.PrevBankroll[At(p)];
    for (int row = 0; row <= 100; ++row) {
        player.ComeOutWorking[At(row)] = t.ComeOutWorking(p, row);
        player.BetWorking[At(row)] = working(p, row);
    }
    return player;
}

}  // namespace

std::int32_t EventsHeadingCode(std::string_view heading) {
    const auto* const found = std::find(Headings.begin(), Headings.end(), heading);
    return found == Headings.end() ? 0 : static_cast<std::int32_t>(found - Headings.begin());
}

std::string_view EventsHeadingOf(std::int32_t code) { return code < 0 || code > 7 ? Headings[0] : Headings[At(code)]; }

GameImage ImageOf(const Table& t) {
    GameImage image;
    image.T = std::make_unique<Table>(t);
    image.T->Front = nullptr;
    image.T->Scripts = nullptr;
    image.T->Logs = nullptr;
    image.Figures = FiguresOf(t);
    image.Header = GameFileTitle;
    image.HeaderExt = ExtensionMark;
    image.DiceFile.Name = t.DiceRollFileName;
    image.Probabilities.Name = t.ProbabilityFileName;
    image.EventsLog.Name = t.EventsLogFileName;
    image.ProbabilityFormMode = t.ProbabilityMatrix[0][0][0];
    image.EventsLogHeadingCode = EventsHeadingCode(t.EventsLogHeading);
    image.PathPointCount = static_cast<std::int32_t>(t.PathPoints.size());
    for (int p = 1; p < Positions; ++p) image.PrevAutoBetOnMask |= t.PrevScriptOn[At(p)] ? 1 << p : 0;
    for (int row = 0; row <= 100; ++row) image.HouseComeOutWorking[At(row)] = t.ComeOutWorking(0, row);
    const PerBet<std::int8_t, 101> working = AllBetWorking(t);
    for (int p = 1; p < Positions; ++p) {
        if (IsSeated(t, p)) image.Players[At(p)] = ImageOfPlayer(t, working, p);
    }
    return image;
}

// --- writing ---

namespace {

bool Survives(const std::string& name) {
    const Encoded encoded = ToCodePage(name);
    return encoded.Bytes.size() <= 200 && FieldText(encoded.Bytes) == name;
}

void KeepOrLose(FileLink& link, std::vector<std::string>& lost) {
    if (Survives(link.Name)) return;
    lost.push_back(link.Name);
    link = {};
}

void KeepOrLose(std::string& name, std::vector<std::string>& lost) {
    if (Survives(name)) return;
    lost.push_back(name);
    name.clear();
}

bool VisitHeader(GameFields& fields, GameImage& image) {
    if (!fields.Begin(1)) return false;
    fields.Text(0, 200, "Header", image.Header);
    fields.Text(200, 56, "HeaderExt", image.HeaderExt);
    fields.Extended = image.HeaderExt.substr(0, ExtensionMark.size()) == ExtensionMark;
    return true;
}

bool VisitFixed(GameFields& fields, GameImage& image) {
    return VisitHeader(fields, image) && VisitWindows(fields, image) && VisitTable(fields, image) &&
           VisitLinks(fields, image) && VisitSettings(fields, image) && VisitStatistics(fields, image) &&
           VisitOptions(fields, image);
}

}  // namespace

void VisitGame(GameFields& fields, GameImage& image) {
    if (!VisitFixed(fields, image)) return;
    for (int p = 1; p < Positions; ++p) {
        std::int32_t position = p;
        if (IsSeated(*image.T, p) && !VisitPlayer(fields, image, p, position)) return;
    }
    VisitPath(fields, image);
}

std::string GameBytes(GameImage& image, std::vector<std::string>& lost) {
    for (FileLink* link : {&image.DiceFile, &image.Probabilities, &image.EventsLog}) KeepOrLose(*link, lost);
    for (int p = 1; p < Positions; ++p) {
        KeepOrLose(image.Players[At(p)].Script, lost);
        KeepOrLose(image.T->ScriptOutputFile[At(p)], lost);
        KeepOrLose(image.T->SessionsLogName[At(p)], lost);
    }
    GameWriter writer;
    VisitGame(writer, image);
    return std::move(writer.Bytes);
}

// --- reading ---

GameForm FormOfGame(std::string_view bytes) {
    const std::string_view record = bytes.substr(0, RecordLength);
    if (record.size() < RecordLength || record.find("Tarnwick") == std::string_view::npos) return GameForm::NoGame;
    return record.find(GameFileTitle) == std::string_view::npos ? GameForm::OtherVersion : GameForm::Game;
}

namespace {

/// What a file without the mark says of the fields that only the mark brings. The other fields are read anyway.
void SetDefaultsBeyondFormat(GameImage& image) {
    Table& t = *image.T;
    static_cast<DisplayState&>(t) = DisplayState{};
    t.CentreTable = true;
    t.LastPoint = 0;
    t.RollRateUnit = 0;
    t.DiceFileEnd = 0;
    t.GraphsPerPage = t.GraphsOnPage = 0;
    image.PrevAutoBetOnMask = 0;
}

void EmptyAllPositions(GameImage& image) {
    Table& t = *image.T;
    image.PlayersRead = true;
    const auto actProb = t.AllowActProb;
    const auto act4Others = t.AllowAct4Others;
    const auto reset = t.AllowReset;
    const auto selections = {&t.RollTotalsPlayers, &t.BetResultsPlayers, &t.HandsPlayers, &t.SummaryPlayers,
                             &t.AutoPlayPlayers};
    std::array<std::int32_t, 5> selected{};
    std::transform(selections.begin(), selections.end(), selected.begin(),
                   [](const auto* players) { return *players; });
    for (int p = 1; p < Positions; ++p) {
        ClearPosition(t, p);
        t.HandleOperator[At(p)] = t.HandleUnit[At(p)] = {};
        t.HandleAmount[At(p)] = {};
        image.Players[At(p)] = {};
        image.Figures->Players[At(p)] = nullptr;
    }
    t.Bankroll = t.BankrollBegin = t.BankrollHigh = t.BankrollLow = {};
    t.AllowActProb = actProb;
    t.AllowAct4Others = act4Others;
    t.AllowReset = reset;
    std::size_t i = 0;
    for (std::int32_t* players : selections) *players = selected[i++];
}

}  // namespace

namespace {

bool ReadRecords(std::string_view bytes, GameImage& image) {
    GameReader reader(bytes);
    if (!VisitHeader(reader, image)) return false;
    if (!reader.Extended) SetDefaultsBeyondFormat(image);
    if (!VisitWindows(reader, image) || !VisitTable(reader, image) || !VisitLinks(reader, image) ||
        !VisitSettings(reader, image) || !VisitStatistics(reader, image) || !VisitOptions(reader, image)) {
        return false;
    }
    const std::int32_t players = std::clamp(image.T->PlayerCount, 0, Positions - 1);
    EmptyAllPositions(image);
    for (std::int32_t block = 0; block < players; ++block) {
        std::int32_t position = reader.NextPosition();
        // A block that names no position still has its place in the file.
        const bool known = 1 <= position && position < Positions;
        if (!known) {
            if (!reader.Begin(PlayerRecords)) return false;
        } else if (!VisitPlayer(reader, image, position, position)) {
            return false;
        }
    }
    image.T->PathPoints.clear();
    return VisitPath(reader, image);
}

}  // namespace

bool ReadGame(std::string_view bytes, GameImage& image) {
    const bool whole = ReadRecords(bytes, image);
    image.PathPointCount = static_cast<std::int32_t>(image.T->PathPoints.size());  // those that were there
    return whole;
}

}  // namespace tarnwick
