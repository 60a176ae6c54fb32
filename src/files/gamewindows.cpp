// Records 2 to 9: windows, saved views, the state of the table and the files that belong to it.
#include "files/gamefields.h"

namespace tarnwick {

namespace {

std::size_t At(int i) { return static_cast<std::size_t>(i); }

enum class Fields { All, Fixed, NoFlag };

/// Windows in the file by the slot of their shown flag.
struct WindowSlot {
    int Slot;
    Form Of;
    const char* Name;
    Fields Has;
};

constexpr WindowSlot FirstRecord[] = {
    {5, Form::frmDiceRollFiles, "frmDiceRollFiles", Fields::All},
    {10, Form::frmAutoPlay, "frmAutoPlay", Fields::Fixed},
    {15, Form::picStatus, "picStatus", Fields::All},
    {20, Form::frmRYON, "frmRYON", Fields::All},
};
constexpr WindowSlot SecondRecord[] = {
    {0, Form::frmSessions, "frmSessions", Fields::All},
    {5, Form::frmEventsLog, "frmEventsLog", Fields::All},
    {10, Form::frmSummary, "frmSummary", Fields::Fixed},
    {15, Form::frmBankroll, "frmBankroll", Fields::All},
    {20, Form::frmRollTotals, "frmRollTotals", Fields::All},
    {25, Form::frmRollFreqs, "frmRollFreqs", Fields::Fixed},
    {30, Form::frmBetResults, "frmBetResults", Fields::Fixed},
    {35, Form::frmBetTrends, "frmBetTrends", Fields::All},
    {40, Form::frmCheckStacks, "frmCheckStacks", Fields::All},
    {45, Form::frmHands, "frmHands", Fields::Fixed},
    {50, Form::frmHotKeys, "frmHotKeys", Fields::Fixed},
    {54, Form::frmFile, "frmFile", Fields::NoFlag},
    {59, Form::frmMove, "frmMove", Fields::Fixed},
};
constexpr WindowSlot Editor = {25, Form::frmAutoBet, "frmAutoBet", Fields::All};
constexpr WindowSlot Configuration = {46, Form::frmConfigure, "frmConfigure", Fields::All};

void VisitWindow(GameFields& f, Table& t, const WindowSlot& window) {
    FormPlacement& place = t.Placement(window.Of);
    if (window.Has != Fields::NoFlag) f.Flag(L(window.Slot), window.Name, place.Shown);
    f.Long(L(window.Slot + 1), {window.Name, 1}, place.Left);
    f.Long(L(window.Slot + 2), {window.Name, 2}, place.Top);
    if (window.Has == Fields::Fixed) return;
    f.Long(L(window.Slot + 3), {window.Name, 3}, place.Width);
    f.Long(L(window.Slot + 4), {window.Name, 4}, place.Height);
}

}  // namespace

bool VisitWindows(GameFields& f, GameImage& image) {
    Table& t = *image.T;
    if (!f.Begin(1)) return false;
    FormPlacement& main = t.Placement(Form::main);
    f.Long(L(0), "MainWindowState", t.MainWindowState);
    f.Long(L(1), {"main", 1}, main.Left);
    f.Long(L(2), {"main", 2}, main.Top);
    f.Long(L(3), {"main", 3}, main.Width);
    f.Long(L(4), {"main", 4}, main.Height);
    for (const WindowSlot& window : FirstRecord) VisitWindow(f, t, window);
    if (f.Extended) VisitWindow(f, t, Editor);
    if (f.Extended) VisitWindow(f, t, Configuration);
    for (int p = 1; p < Positions; ++p) f.Long(L(29 + p), {"StatusBoxLeft", p}, t.StatusBoxLeft[At(p)]);
    for (int p = 1; p < Positions; ++p) f.Long(L(37 + p), {"StatusBoxTop", p}, t.StatusBoxTop[At(p)]);

    if (!f.Begin(1)) return false;
    for (const WindowSlot& window : SecondRecord) VisitWindow(f, t, window);

    if (!f.Begin(1)) return false;
    for (int view = 0; view < 10; ++view) {
        for (int i = 0; i < 4; ++i) f.Long(L(4 * view + i), {"SavedView", view, i}, t.SavedView[At(view)][At(i)]);
    }
    return true;
}

namespace {

void VisitPlay(GameFields& f, Table& t, GameImage& image) {
    f.Long(L(0), "PlayerCount", t.PlayerCount);
    f.Long(L(1), "ActivePlayer", t.ActivePlayer);
    f.Long(L(2), "Shooter", t.Shooter);
    f.Long(L(3), "LastHandShooter", t.LastHandShooter);
    f.Long(L(4), "HandShooter", t.HandShooter);
    f.Long(L(5), "Point", t.Point);
    f.Long(L(6), "PrevPoint", t.PrevPoint);
    f.Long(L(7), "PrevPrevPoint", t.PrevPrevPoint);
    f.Long(L(8), "Die1", t.Die1);
    f.Long(L(9), "Die2", t.Die2);
    if (f.Extended) f.Long(L(10), "LastPoint", t.LastPoint);
    f.Long(L(12), "PointsMadeMask", t.PointsMadeMask);
    f.Long(L(13), "Rng3State", t.Rng3State);
    f.Long(L(14), "LastSeed", t.LastSeed);
    f.Long(L(19), "PathPointCount", image.PathPointCount);
    f.Long(L(31), "MarkedNumbers", t.MarkedNumbers);
    f.Long(L(32), "FourRollsCount", t.FourRollsCount);
}

void VisitView(GameFields& f, Table& t) {
    f.Single(L(15), "TableAngle", t.TableAngle);
    f.Single(L(16), "TableWidth", t.TableWidth);
    f.Single(L(17), "TableOffsetX", t.TableOffsetX);
    f.Long(L(18), "StatusAlign", t.StatusAlign);
    f.Flag(L(20), "AutoSizeTable", t.AutoSizeTable);
    f.Long(L(21), "GraphPlayer", t.GraphPlayer);
    f.Long(L(22), "CheckStacksPlayer", t.CheckStacksPlayer);
    f.Long(L(23), "BetTrendsPlayer", t.BetTrendsPlayer);
    f.Long(L(24), "EditorPlayer", t.EditorPlayer);
    f.Long(L(25), "ConfigBankrollPlayer", t.ConfigBankrollPlayer);
    f.Long(L(26), "AutoPlayPlayers", t.AutoPlayPlayers);
    f.Long(L(27), "RollTotalsPlayers", t.RollTotalsPlayers);
    f.Long(L(28), "BetResultsPlayers", t.BetResultsPlayers);
    f.Long(L(29), "HandsPlayers", t.HandsPlayers);
    f.Long(L(30), "SummaryPlayers", t.SummaryPlayers);
}

void VisitViewBeyondFormat(GameFields& f, Table& t, GameImage& image) {
    f.Single(L(33), "TableOffsetY", t.TableOffsetY);
    f.Long(L(34), "RollTotalsScope", t.RollTotalsScope);
    f.Long(L(35), "BetResultsScope", t.BetResultsScope);
    f.Long(L(36), "HandsScope", t.HandsScope);
    f.Long(L(37), "SummaryScope", t.SummaryScope);
    f.Long(L(38), "RollFreqsEvent", t.RollFreqsEvent);
    f.Flag(L(39), "RollFreqsShowTrue", t.RollFreqsShowTrue);
    for (int i = 1; i <= 3; ++i) f.Long(L(39 + i), {"BetResultsBets", i}, t.BetResultsBets[At(i)]);
    f.Flag(L(43), "BetResultsUseSeparator", t.BetResultsUseSeparator);
    f.Flag(L(44), "HandsUnits", t.HandsUnits);
    f.Long(L(45), "SelectedCheck", t.SelectedCheck);
    f.Long(L(46), "CheckStacksFontSize", t.CheckStacksFontSize);
    f.Flag(L(47), "CheckStacksFontBold", t.CheckStacksFontBold);
    f.Flag(L(48), "CheckStacksFontItalic", t.CheckStacksFontItalic);
    f.Long(L(49), "StatusLines", t.StatusLines);
    f.Long(L(50), "PrevAutoBetOnMask", image.PrevAutoBetOnMask);
}

bool VisitLink(GameFields& f, FileLink& link, const char* name, const char* date) {
    if (!f.Begin(1)) return false;
    f.Text(0, 200, name, link.Name);
    f.Text(200, 56, date, link.Date);
    return true;
}

}  // namespace

bool VisitTable(GameFields& f, GameImage& image) {
    if (!f.Begin(1)) return false;
    VisitPlay(f, *image.T, image);
    VisitView(f, *image.T);
    if (f.Extended) VisitViewBeyondFormat(f, *image.T, image);
    return true;
}

bool VisitLinks(GameFields& f, GameImage& image) {
    if (!VisitLink(f, image.DiceFile, "DiceRollFileName", "DiceRollFileDate")) return false;
    if (!VisitLink(f, image.Probabilities, "ProbabilityFileName", "ProbabilityFileDate")) return false;
    if (!VisitLink(f, image.EventsLog, "EventsLogFileName", "EventsLogFileDate")) return false;
    if (!f.Begin(1)) return false;
    Table& t = *image.T;
    f.Flag(L(0), "EventsLogOn", t.EventsLogOn);
    f.Flag(L(1), "ClearLogOnNewSession", t.ClearLogOnNewSession);
    f.Flag(L(2), "KeepLatestRollOnTop", t.KeepLatestRollOnTop);
    f.Long(L(3), "EventsLogFontSize", t.EventsLogFontSize);
    f.Flag(L(4), "EventsLogFontBold", t.EventsLogFontBold);
    f.Flag(L(5), "EventsLogFontItalic", t.EventsLogFontItalic);
    f.Flag(L(6), "RecordBetsWon", t.RecordBetsWon);
    f.Flag(L(7), "RecordBetsLost", t.RecordBetsLost);
    f.Flag(L(8), "RecordBetChanges", t.RecordBetChanges);
    f.Flag(L(9), "RecordCheckStackChanges", t.RecordCheckStackChanges);
    f.Flag(L(10), "RecordPassesMisses", t.RecordPassesMisses);
    f.Flag(L(11), "RecordShooterChanges", t.RecordShooterChanges);
    f.Flag(L(12), "RecordBankrollChanges", t.RecordBankrollChanges);
    f.Flag(L(13), "RecordRolls", t.RecordRolls);
    return true;
}

}  // namespace tarnwick
