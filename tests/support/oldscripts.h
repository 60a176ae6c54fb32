// Script files of earlier versions, byte by byte.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace tarnwick::testsupport {

/// A head record: the text at its start, the rest blank.
inline std::string OldHeadRecord(std::string text) {
    text.resize(256, ' ');
    return text;
}

/// A row: its type in two bytes, low one first, the text in 128, nothing behind.
inline std::string OldRow(int type, std::string text) {
    std::string record = {static_cast<char>(type & 0xFF), static_cast<char>(type >> 8 & 0xFF)};
    text.resize(128, ' ');
    record += text;
    record.resize(256, '\0');
    return record;
}

inline std::string OldScript(const std::string& head, const std::vector<std::pair<int, std::string>>& rows) {
    std::string bytes = OldHeadRecord(head);
    for (const auto& [type, text] : rows) bytes += OldRow(type, text);
    return bytes;
}

}  // namespace tarnwick::testsupport
