#include "lab/texttable.h"

#include <algorithm>

namespace tarnwick::lab {

namespace {

/// Characters of UTF-8 text: its bytes less the continuation bytes.
std::size_t Width(const std::string& text) {
    return static_cast<std::size_t>(std::count_if(
        text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0u) != 0x80u; }));
}

}  // namespace

std::string TextTable(const std::vector<std::vector<std::string>>& rows, std::size_t leftColumns) {
    std::vector<std::size_t> widths;
    for (const auto& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t c = 0; c < row.size(); ++c) widths[c] = std::max(widths[c], Width(row[c]));
    }
    std::string out;
    for (const auto& row : rows) {
        std::string line;
        for (std::size_t c = 0; c < row.size(); ++c) {
            if (c > 0) line += "  ";
            const std::string padding(widths[c] - Width(row[c]), ' ');
            line += c < leftColumns ? row[c] + padding : padding + row[c];
        }
        line.erase(line.find_last_not_of(' ') + 1);
        out += line + '\n';
    }
    return out;
}

std::string OneLine(std::string_view text) {
    std::string line;
    for (const char c : text) {
        if (c != '\n') {
            line += c;
        } else if (!line.empty() && line.back() != ' ') {
            line += ' ';
        }
    }
    return line;
}

std::string Grouped(std::int64_t number) {
    std::string digits = std::to_string(number);
    const std::size_t start = number < 0 ? 1 : 0;
    for (std::size_t i = digits.size(); i > start + 3;) {
        i -= 3;
        digits.insert(i, ",");
    }
    return digits;
}

}  // namespace tarnwick::lab
