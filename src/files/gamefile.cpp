#include "files/gamefile.h"
#include "dice/probabilityfile.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

#include "dice/dicefile.h"
#include "files/atomicfile.h"
#include "files/gameimage.h"
#include "files/paths.h"
#include "stats/eventslogfile.h"
#include "stats/sessionslog.h"
#include "table/format.h"
#include "table/messages.h"

namespace tarnwick {

namespace {

std::size_t At(int i) { return static_cast<std::size_t>(i); }

constexpr std::uintmax_t LongestGame = 16u * 1024 * 1024;
constexpr int EndOfFile = 62;

bool IsDefaultGame(const std::string& path) { return LowerCase(ShortName(path)) == DefaultGameName; }

// --- saving ---

/// The links of the image with the dates of their files; those that are gone are left out where the format says so.
/// Returns what is wrong, or nothing.
std::string LinkFiles(const Table& t, GameImage& image, const std::string& path, const std::string& userFolder) {
    image.DiceFile.Date = FileDateText(image.DiceFile.Name);
    const std::string log = PathIn(userFolder, image.EventsLog.Name);
    image.EventsLog.Date = FileDateText(log);
    if (!IsFile(log)) image.EventsLog = {};
    for (PlayerImage& player : image.Players) player.Script.Date = FileDateText(player.Script.Name);
    std::string fault;
    if (t.ProbabilitiesChanged) {
        image.Probabilities = {};
        const std::string carrier = PathIn(userFolder, std::string(DefaultMatrixName));
        if (IsDefaultGame(path)) {
            fault = SaveUnsavedMatrix(t, carrier);
            if (fault.empty()) image.Probabilities.Name = carrier;
            image.ProbabilityUntitled = fault.empty();
        }
    }
    if (!IsFile(image.Probabilities.Name)) image.Probabilities = {};
    image.Probabilities.Date = FileDateText(image.Probabilities.Name);
    return fault;
}

void TellLost(Table& t, const std::vector<std::string>& lost) {
    if (lost.empty()) return;
    std::string text = "A session file can't hold these file names, so they are not kept:";
    for (const std::string& name : lost) text += "\n\n" + name;
    ShowNote(t, "Save Session File", text);
}

}  // namespace

bool SaveGame(Table& t, const std::string& path, const std::string& userFolder) {
    FlushDiceFile(t);
    GameImage image = ImageOf(t);
    const std::string matrixFault = LinkFiles(t, image, path, userFolder);
    std::vector<std::string> lost;
    const std::string fault = ReplaceFile(path, GameBytes(image, lost));
    if (!fault.empty()) {
        ShowNote(t, "Unable to Save Tarnwick Game File", path + "\ncan't be written: " + fault + ".",
                 MsgButton::OkStop);
        return false;
    }
    if (!matrixFault.empty()) ShowNote(t, "Unable to Save Probability File", matrixFault, MsgButton::OkStop);
    TellLost(t, lost);
    t.GameFileName = IsDefaultGame(path) ? std::string() : path;
    t.GameChanged = false;
    return true;
}

// --- opening ---

namespace {

/// The words of a file that was linked when the game was saved.
void TellLink(Table& t, const std::string& what, const std::string& happened, const std::string& path,
              const std::string& title) {
    ShowNote(t, title,
             "The following " + what + " (that was " + (what == "Events Log" ? "open" : "in use") +
                 " when this game was saved) " + happened + "\n\n" + path);
}

/// True when the dice file is to be rewound.
bool LinkDiceFile(Table& t, const GameImage& image) {
    const FileLink& link = image.DiceFile;
    if (link.Name.empty()) return false;
    bool rewind = false;
    if (!IsFile(link.Name)) {
        TellLink(t, "Dice Roll file", "was not found:", link.Name, "Missing Dice Roll File");
        return false;
    }
    if (FileDateText(link.Name) != link.Date) {
        TellLink(t, "Dice Roll file", "has been changed:", link.Name, "Altered Dice Roll File");
        rewind = true;
    }
    const std::string wrong = OpenDiceRollFile(t, link.Name);
    if (!wrong.empty()) {
        ShowNote(t, std::string(UnableToOpenDiceFile), wrong, MsgButton::OkStop);
        return false;
    }
    if (rewind) return true;
    const DiceRollFile& saved = image.DiceFileState;
    t.DiceFileMode = saved.DiceFileMode;
    t.DiceFileNextRecord = std::min(saved.DiceFileNextRecord, t.DiceFileLength + 1);
    t.DiceFileLastRecord = std::min(saved.DiceFileLastRecord, t.DiceFileLength);
    t.DiceFilePosition = saved.DiceFilePosition;
    t.DiceFileEnd = saved.DiceFileEnd;
    return false;
}

void LinkProbabilities(Table& t, const GameImage& image) {
    const FileLink& link = image.Probabilities;
    if (link.Name.empty()) return;
    const auto open = image.ProbabilityUntitled ? OpenUnsavedMatrix : OpenProbabilities;
    if (!IsFile(link.Name) || !open(t, link.Name)) {
        TellLink(t, "Probability file", "was not found:", link.Name, "Missing Probability File");
    } else if (FileDateText(link.Name) != link.Date) {
        TellLink(t, "Probability file", "has been changed:", link.Name, "Altered Probability File");
    }
}

void LinkEventsLog(Table& t, const std::string& userFolder) {
    std::string& log = t.EventsLogFileName;
    const std::string path = PathIn(userFolder, log);
    if (!log.empty() && IsFile(path)) return;
    if (!log.empty()) TellLink(t, "Events Log", "was not found.", path, "Missing Events Log");
    log = DefaultEventsLogName;
}

void DropScript(Table& t, int p) {
    if (t.Scripts != nullptr) t.Scripts->SwapPositions(t, p, 0);
    t.ScriptName[At(p)].clear();
    t.ScriptOn[At(p)] = t.PrevScriptOn[At(p)] = false;
}

void LinkScript(Table& t, int p, const FileLink& link) {
    if (link.Name.empty()) return;
    const std::string& name = t.PlayerName[At(p)];
    if (!IsFile(link.Name)) {
        ShowNote(t, "Auto-Bet File Not Found", name + "'s auto-bet file was not found:\n\n" + link.Name);
        DropScript(t, p);
        return;
    }
    const bool on = t.ScriptOn[At(p)];
    if (t.Scripts != nullptr && !t.Scripts->OpenScript(t, p, link.Name)) {
        ShowNote(t, "Unable To Open Auto-Bet File",
                 "An error occurred while attempting to load " + name + "'s auto-bet file:\n\n" + link.Name);
        DropScript(t, p);
        return;
    }
    t.ScriptOn[At(p)] = on;
    if (FileDateText(link.Name) != link.Date) {
        ShowNote(t, "Auto-Bet File Changed", name + "'s auto-Bet file has been changed:\n\n" + link.Name);
    }
}

void LinkSessionsLog(Table& t, int p, const std::string& userFolder) {
    std::string& log = t.SessionsLogName[At(p)];
    const std::string path = PathIn(userFolder, log);
    const std::string standard = DefaultSessionsLogName(t.PlayerName[At(p)]);
    const std::string standardPath = PathIn(userFolder, standard);
    if (log.empty()) log = standard;
    if (IsFile(path) || path == standardPath || path.empty()) return;
    const std::string instead = IsFile(standardPath)
                                    ? "The following existing Sessions Log will be opened instead:"
                                    : "The following new Sessions Log will be created and opened instead:";
    ShowNote(t, "Sessions Log Not Found",
             "The following Sessions Log for " + t.PlayerName[At(p)] + " was not found: " + path + "\n\n" + instead +
                 "\n\n" + standardPath);
    log = standard;
}

/// What belongs to the running program and not to a game.
void KeepProgram(Table& staged, Table& t, bool isDefault) {
    staged.Front = t.Front;
    staged.Scripts = t.Scripts;
    staged.Logs = t.Logs;
    staged.GraphWindowOpen = t.GraphWindowOpen;
    staged.RunUntilRoll = t.RunUntilRoll;
    if (!isDefault) return;
    staged.Placement(Form::main) = t.Placement(Form::main);
    staged.MainWindowState = t.MainWindowState;
}

void TakeOver(Table& t, GameImage& image, const std::string& path, const std::string& userFolder) {
    CloseDiceRollFile(t);
    if (t.Logs != nullptr) t.Logs->Serve(t);  // what is collected belongs to the log that was
    for (int p = 1; image.PlayersRead && p < Positions; ++p) DropScript(t, p);
    Table& staged = TableOfImage(image);
    KeepProgram(staged, t, IsDefaultGame(path));
    t = staged;
    const bool rewind = LinkDiceFile(t, image);
    LinkProbabilities(t, image);
    LinkEventsLog(t, userFolder);
    for (int p = 1; p < Positions; ++p) {
        if (!IsSeated(t, p) || !image.PlayersRead) continue;
        LinkScript(t, p, image.Players[At(p)].Script);
        LinkSessionsLog(t, p, userFolder);
    }
    if (rewind) {
        t.DiceFileNextRecord = t.DiceFilePosition = 1;
        t.DiceFileLastRecord = t.DiceFileMode = 0;
    }
    t.GameFileName = IsDefaultGame(path) ? std::string() : path;
    t.GameChanged = false;
}

bool RefuseForm(Table& t, GameForm form, const std::string& path) {
    if (form == GameForm::Game) return false;
    const std::string text = form == GameForm::NoGame ? "This is not a Tarnwick game file."
                                                      : "This file appears to be from an incompatible version or is "
                                                        "not a true Tarnwick game file.";
    ShowNote(t, std::string(UnableToOpenGame), text + "\n\n" + ShortName(path), MsgButton::OkStop);
    return true;
}

}  // namespace

bool OpenGame(Table& t, const std::string& path, const std::string& userFolder) {
    if (t.RollInProgress || t.ScriptRunning) return false;
    std::string bytes;
    const std::string fault = ReadWholeFile(path, LongestGame, bytes);
    if (!fault.empty()) {
        ShowNote(t, std::string(UnableToOpenGame), path + "\ncan't be read: " + fault + ".", MsgButton::OkStop);
        return false;
    }
    if (RefuseForm(t, FormOfGame(bytes), path)) return false;
    FlushDiceFile(t);  // or its date would be that of an earlier write
    GameImage image = ImageOf(t);
    image.DiceFile.Date = FileDateText(t.DiceRollFileName);
    image.Probabilities.Date = FileDateText(t.ProbabilityFileName);
    const bool whole = ReadGame(bytes, image);
    TakeOver(t, image, path, userFolder);
    if (!whole) ReportFault(t, EndOfFile, "Open Game");
    return whole;
}

std::string GameTitle(const Table& t) {
    return t.GameFileName.empty() ? "Tarnwick" : "Tarnwick (" + ShortName(t.GameFileName) + ")";
}

// --- the standing game ---

bool OpenGameAtStart(Table& t, const std::string& given, const std::string& userFolder) {
    const std::string standing = PathIn(userFolder, std::string(DefaultGameName));
    const bool hasStanding = IsFile(standing);
    if (!given.empty()) {
        const std::string name = LowerCase(given);
        const bool isGame = name.size() > 4 && name.substr(name.size() - 4) == ".crp";
        if (isGame && OpenGame(t, given, userFolder)) return true;
        if (!isGame) {
            std::string text = "This is not recognized as a Tarnwick game filename.";
            if (hasStanding) text += "\nThe last default game file will be opened instead.";
            ShowNote(t, std::string(UnableToOpenGame), text);
        }
    }
    return hasStanding && OpenGame(t, standing, userFolder);
}

bool SaveGameAtExit(Table& t, const std::string& userFolder) {
    std::error_code error;  // the first end of all makes the folder; what can't be made is told by the save
    if (!userFolder.empty()) std::filesystem::create_directories(userFolder, error);
    return SaveGame(t, PathIn(userFolder, std::string(DefaultGameName)), userFolder);
}

UnsavedGame AskAboutUnsavedGame(Table& t) {
    if (!t.GameChanged) return UnsavedGame::Unchanged;
    Message message;
    message.Title = "Save Session";
    message.Text = "Your current session has not been saved.\n\nDo you want to save it now?";
    message.Buttons = MsgButton::YesNoQuestion | MsgButton::Cancel;
    const Answer answer = ShowMessage(t, message);
    if (answer.Result == MsgAnswer::Yes) return UnsavedGame::Save;
    return answer.Result == MsgAnswer::No ? UnsavedGame::Discard : UnsavedGame::Cancel;
}

}  // namespace tarnwick
