#include "autobet/scripts.h"

#include <map>

#include "autobet/numbertext.h"

namespace tarnwick::test {

namespace {

std::string Sign(std::int32_t code) {
    static const std::map<std::int32_t, std::string> signs = {
        {1, "IF"},     {9, "THEN"}, {10, "ELSE"},    {11, "ELSEIF"}, {12, "ENDIF"}, {13, "RETURN"}, {14, "GOTO"},
        {15, "GOSUB"}, {16, "DO"},  {17, "LOOP"},    {18, "EXITDO"}, {20, "("},     {21, ")"},      {50, "="},
        {51, "<>"},    {52, "<"},   {53, ">"},       {54, "<="},     {55, ">="},    {60, "^"},      {61, "*"},
        {62, "/"},     {63, "\\"},  {64, "mod"},     {65, "+"},      {66, "-"},     {70, "not"},    {71, "and"},
        {72, "or"},    {73, "xor"}, {74, "&"},       {75, ","},      {0, "end"},    {-1, "F"},      {-2, "TF"},
        {-11, "V"},    {-12, "TV"}, {-13, "P"},      {-14, "H"},     {-15, "X"},    {-16, "Y"},     {-31, ""},
        {-51, "S"},    {-61, "A"},  {-71, "label "}, {-81, "I"},     {-3, "slot "}};
    const auto at = signs.find(code);
    return at == signs.end() ? "?" + std::to_string(code) : at->second;
}

std::string Print(const Compilation& c, bool places) {
    std::string out;
    for (std::size_t i = 3; i < c.Elements.size(); ++i) {
        const Element& e = c.Elements[i];
        const bool last = i + 1 == c.Elements.size();
        if (last && !places) break;
        if (!out.empty()) out += ' ';
        if (IsMarker(e)) {
            out += "|";
            if (places) out += std::to_string(LineOf(e)) + ":" + std::to_string(ColumnOf(e));
            continue;
        }
        out += Sign(e.Code);
        if (e.Code < 0) out += GeneralNumber(e.Value);
    }
    return out;
}

}  // namespace

Compilation Script(std::string_view text) {
    Compilation c;
    c.PlayerNames[1] = "Ann";
    c.PlayerNames[2] = "Fred Smith";
    for (std::size_t from = 0; from <= text.size();) {
        const std::size_t end = std::min(text.find('\n', from), text.size());
        c.Lines.emplace_back(text.substr(from, end - from));
        from = end + 1;
    }
    return c;
}

std::string Place(const CompileError& error) {
    return std::to_string(error.FirstLine) + ":" + std::to_string(error.FirstCol) + "-" +
           std::to_string(error.LastLine) + ":" + std::to_string(error.LastCol);
}

std::string Short(const Compilation& c) { return Print(c, false); }

std::string ShortWithPlaces(const Compilation& c) { return Print(c, true); }

std::string After(std::string_view pass, std::string_view text) {
    Compilation c = Script(text);
    if (const auto error = CompileAutobets(c, pass)) return Place(*error) + " " + error->Text;
    return Short(c);
}

}  // namespace tarnwick::test
