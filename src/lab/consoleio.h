// Input and output of the console.
#pragma once

#include <string>
#include <string_view>

#include "lab/json.h"

namespace tarnwick::lab {

/// Lines of standard input, counted.
class LineSource {
  public:
    LineSource();
    ~LineSource();
    LineSource(const LineSource&) = delete;
    LineSource& operator=(const LineSource&) = delete;

    /// Whether a person types the lines.
    bool Interactive() const { return Terminal; }
    /// The next line without its line break, after `prompt` on a terminal. False at the end or when interrupted.
    bool Next(std::string& line, std::string_view prompt);
    int LineNumber() const { return Number; }

  private:
    bool Terminal;
    int Number = 0;
    char* Buffer = nullptr;
    std::size_t Capacity = 0;
};

/// What the console prints: text for people, or one JSON object a line. Keeps whether anything went wrong.
class Printer {
  public:
    Printer(bool json, const LineSource& lines) : Json(json), Lines(lines) {}

    bool WritesJson() const { return Json; }
    void Print(std::string_view text) const;      ///< as it is
    void PrintLine(std::string_view text) const;  ///< with a line break
    void PrintJson(const JsonWriter& json) const { PrintLine(json.Text()); }
    /// What is wrong with the line read last: on standard error, or with JSON as an object on standard output.
    void Fault(std::string_view message);
    bool AnyFault() const { return Failed; }

  private:
    bool Json;
    const LineSource& Lines;
    bool Failed = false;
};

}  // namespace tarnwick::lab
