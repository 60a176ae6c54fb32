#include "lab/events.h"

#include <cstdio>

#include "files/codepage.h"
#include "lab/json.h"
#include "stats/eventslogfile.h"

namespace tarnwick::lab {

namespace {

/// Prints what is wanted line by line: a log may be longer than the memory.
class LinePrinter {
  public:
    explicit LinePrinter(const EventsOptions& options) : Options(options) {
        if (!Options.Json) return;
        JsonWriter head;
        head.BeginObject().Field("file", Options.File).Field("find", Options.Find).EndObject();
        std::string text = head.Text();
        text.pop_back();
        std::fputs((text + ",\"matches\":[").c_str(), stdout);
    }

    void Print(std::int64_t number, const std::string& bytes) {
        const std::string text = FromCodePage(bytes);
        if (Options.Json) {
            JsonWriter json;
            json.BeginObject().Field("line", number).Field("text", text).EndObject();
            std::printf("%s%s", Printed > 0 ? "," : "", json.Text().c_str());
        } else {
            std::printf("%lld: %s\n", static_cast<long long>(number), text.c_str());
        }
        ++Printed;
    }

    void Finish(std::int64_t lines) const {
        if (Options.Json) {
            std::printf("],\"lines\":%lld}\n", static_cast<long long>(lines));
        } else if (Printed == 0 && !Options.Find.empty()) {
            std::puts("Text not found.");
        }
    }

    std::int64_t Printed = 0;

  private:
    const EventsOptions& Options;
};

}  // namespace

int Events(const EventsOptions& options) {
    SharedFile log;
    const std::string fault = log.Open(options.File, SharedFile::Use::Read);
    if (!fault.empty()) {
        std::fprintf(stderr, "tarnwick-lab events: %s: %s\n", options.File.c_str(), fault.c_str());
        return 2;
    }
    const std::string wanted = SearchBytes(options.Find);
    const bool hopeless = wanted.empty() && !options.Find.empty();
    LinePrinter printer(options);
    LineStream lines(log);
    std::string line;
    std::int64_t number = 0;
    while (lines.Next(line)) {
        ++number;
        if (number < options.Top || hopeless || printer.Printed == options.Most || !LineHolds(line, wanted)) continue;
        printer.Print(number, line);
    }
    printer.Finish(number);
    return options.Find.empty() || printer.Printed > 0 ? 0 : 1;
}

}  // namespace tarnwick::lab
