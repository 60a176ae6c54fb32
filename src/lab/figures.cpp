#include "lab/figures.h"

#include <cstdio>
#include <memory>

#include "files/gamefile.h"
#include "lab/figurereports.h"
#include "lab/game.h"
#include "lab/texttable.h"
#include "table/screen.h"
#include "table/session.h"

namespace tarnwick::lab {

namespace {

constexpr int CannotUse = 2;

int Refuse(const FigureOptions& options, const std::string& fault) {
    std::fprintf(stderr, "tarnwick-lab %s: %s\n", options.Report.c_str(), OneLine(fault).c_str());
    return CannotUse;
}

/// Tells on standard error what opening a game has to say, and leaves everything as it is.
struct OpeningScreen : SilentScreen {
    explicit OpeningScreen(const FigureOptions& options) : Options(options) {}
    Answer Show(const Message& message) override {
        Refuse(Options, message.Text);
        return SilentScreen::Show(message);
    }
    const FigureOptions& Options;
};

}  // namespace

int PrintFigures(const FigureOptions& options) {
    const FigureReport* const report = FindFigureReport(options.Report);
    if (report == nullptr) return Refuse(options, "there is no such report");
    const auto table = std::make_unique<Table>();
    Table& t = *table;
    OpeningScreen screen(options);
    SubMain(t, &screen);
    if (!OpenGame(t, options.Game, LabGameHost())) return Refuse(options, options.Game + " can't be used");
    const Parsed<FigureQuery> query = ParseFigureQuery(options.Report, options.Words, t.ActivePlayer);
    if (!query) return Refuse(options, query.Fault);
    if (options.Json) {
        JsonWriter json;
        json.BeginObject();
        report->Write(json, t, query.Value);
        std::printf("%s\n", json.EndObject().Text().c_str());
    } else {
        std::fputs(report->Text(t, query.Value).c_str(), stdout);
    }
    return 0;
}

}  // namespace tarnwick::lab
