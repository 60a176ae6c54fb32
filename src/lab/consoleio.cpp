#include "lab/consoleio.h"

#include <stdio.h>  // getline
#include <stdlib.h>
#include <unistd.h>

#include "lab/texttable.h"

namespace tarnwick::lab {

LineSource::LineSource() : Terminal(isatty(STDIN_FILENO) != 0) {}

LineSource::~LineSource() { free(Buffer); }

bool LineSource::Next(std::string& line, std::string_view prompt) {
    if (Terminal) fwrite(prompt.data(), 1, prompt.size(), stdout);
    fflush(stdout);
    const auto length = getline(&Buffer, &Capacity, stdin);
    if (length < 0) {
        if (Terminal) fputc('\n', stdout);
        return false;
    }
    ++Number;
    line.assign(Buffer, static_cast<std::size_t>(length));
    if (!line.empty() && line.back() == '\n') line.pop_back();
    return true;
}

void Printer::Print(std::string_view text) const { fwrite(text.data(), 1, text.size(), stdout); }

void Printer::PrintLine(std::string_view text) const {
    Print(text);
    fputc('\n', stdout);
}

void Printer::Fault(std::string_view message) {
    const std::string text = OneLine(message);
    Failed = true;
    if (Json) {
        JsonWriter json;
        json.BeginObject().Key("error").BeginObject();
        json.Field("line", Lines.LineNumber()).Field("text", text).EndObject().EndObject();
        PrintJson(json);
        return;
    }
    fflush(stdout);  // the two streams often end in the same place, and the order tells what failed
    fprintf(stderr, "line %d: %s\n", Lines.LineNumber(), text.c_str());
}

}  // namespace tarnwick::lab
