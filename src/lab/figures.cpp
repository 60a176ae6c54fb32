#include "lab/figures.h"

#include <cstdio>
#include <memory>

#include "lab/figurereports.h"
#include "lab/game.h"
#include "lab/texttable.h"
#include "table/crapcnst.h"
#include "table/session.h"

namespace tarnwick::lab {

namespace {

constexpr int CannotUse = 2;

int Refuse(const FigureOptions& options, const std::string& fault) {
    std::fprintf(stderr, "tarnwick-lab %s: %s\n", options.Report.c_str(), OneLine(fault).c_str());
    return CannotUse;
}

}  // namespace

int PrintFigures(const FigureOptions& options) {
    const FigureReport* const report = FindFigureReport(options.Report);
    if (report == nullptr) return Refuse(options, "there is no such report");
    const auto table = std::make_unique<Table>();
    Table& t = *table;
    SubMain(t, nullptr);
    const std::string fault = OpenGameFor(options.Report, t, options.Game);
    if (!fault.empty()) return Refuse(options, fault);
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
