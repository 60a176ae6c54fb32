#include "lab/json.h"

#include <charconv>
#include <cmath>

#include "table/format.h"

namespace tarnwick::lab {

namespace {

/// Length of the well-formed UTF-8 sequence at the start of `text` (not empty), 0 when there is none: overlong forms,
/// surrogates and values above U+10FFFF are not well-formed.
std::size_t Utf8Length(std::string_view text) {
    const auto byte = [&](std::size_t i) -> unsigned {
        return i < text.size() ? static_cast<unsigned char>(text[i]) : 0;
    };
    const auto follows = [&](std::size_t i) { return (byte(i) & 0xC0u) == 0x80u; };
    const unsigned first = byte(0);
    if (first < 0x80u) return 1;
    if (first < 0xC2u || first > 0xF4u || !follows(1)) return 0;
    if (first < 0xE0u) return 2;
    if (!follows(2)) return 0;
    if (first < 0xF0u) return (first == 0xE0u && byte(1) < 0xA0u) || (first == 0xEDu && byte(1) > 0x9Fu) ? 0 : 3;
    if (!follows(3)) return 0;
    return (first == 0xF0u && byte(1) < 0x90u) || (first == 0xF4u && byte(1) > 0x8Fu) ? 0 : 4;
}

void AppendEscaped(std::string& out, char c) {
    switch (c) {
        case '"':
            out += "\\\"";
            return;
        case '\\':
            out += "\\\\";
            return;
        case '\n':
            out += "\\n";
            return;
        case '\r':
            out += "\\r";
            return;
        case '\t':
            out += "\\t";
            return;
        default:
            break;
    }
    constexpr std::string_view digits = "0123456789abcdef";
    const auto code = static_cast<unsigned char>(c);
    if (code >= 0x20 && code != 0x7F) {
        out += c;
    } else {
        out += "\\u00";
        out += digits[code >> 4];
        out += digits[code & 15];
    }
}

}  // namespace

bool IsUtf8(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = Utf8Length(text);
        if (length == 0) return false;
        text.remove_prefix(length);
    }
    return true;
}

std::string JsonString(std::string_view text) {
    std::string out = "\"";
    while (!text.empty()) {
        const std::size_t length = Utf8Length(text);
        if (length == 1) {
            AppendEscaped(out, text[0]);
        } else if (length == 0) {
            out += "\\ufffd";
        } else {
            out += text.substr(0, length);
        }
        text.remove_prefix(length == 0 ? 1 : length);
    }
    out += '"';
    return out;
}

JsonWriter& JsonWriter::Key(std::string_view name) {
    Separate();
    Out += JsonString(name);
    Out += ':';
    AfterKey = true;
    return *this;
}

JsonWriter& JsonWriter::Value(currency amount) { return Value(std::string_view(PlainAmount(amount))); }

JsonWriter& JsonWriter::Value(double number) {
    if (!std::isfinite(number)) return Raw("null");
    char buffer[32];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, number);
    return Raw({buffer, static_cast<std::size_t>(result.ptr - buffer)});
}

JsonWriter& JsonWriter::Open(char bracket) {
    Separate();
    Out += bracket;
    HasItems.push_back(false);
    return *this;
}

JsonWriter& JsonWriter::Close(char bracket) {
    HasItems.pop_back();
    Out += bracket;
    return *this;
}

JsonWriter& JsonWriter::Raw(std::string_view text) {
    Separate();
    Out += text;
    return *this;
}

void JsonWriter::Separate() {
    if (AfterKey) {
        AfterKey = false;
    } else if (!HasItems.empty()) {
        if (HasItems.back()) Out += ',';
        HasItems.back() = true;
    }
}

}  // namespace tarnwick::lab
