#include "autobet/text.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace tarnwick {

bool IsAllBlank(std::string_view text) { return std::all_of(text.begin(), text.end(), IsBlank); }

std::string_view TrimBlanks(std::string_view text) {
    while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
    return text;
}

namespace {

/// Second byte of a two-byte letter in lower case; `lead` may change too.
void LowerTwoBytes(char& lead, char& trail) {
    const auto first = static_cast<unsigned char>(lead);
    const auto second = static_cast<unsigned char>(trail);
    if (first == 0xC3 && 0x80 <= second && second <= 0x9E && second != 0x97) {
        trail = static_cast<char>(second + 0x20);
    } else if (first == 0xC5 && (second == 0x92 || second == 0xA0 || second == 0xBD)) {  // OE, S and Z with caron
        trail = static_cast<char>(second + 1);
    } else if (first == 0xC5 && second == 0xB8) {  // Y with diaeresis
        lead = static_cast<char>(0xC3);
        trail = static_cast<char>(0xBF);
    }
}

}  // namespace

std::string LowerText(std::string_view text) {
    std::string lower(text);
    for (std::size_t i = 0; i < lower.size(); ++i) {
        if ('A' <= lower[i] && lower[i] <= 'Z') {
            lower[i] = static_cast<char>(lower[i] - 'A' + 'a');
        } else if (static_cast<unsigned char>(lower[i]) >= 0xC3 && i + 1 < lower.size()) {
            LowerTwoBytes(lower[i], lower[i + 1]);
            ++i;
        }
    }
    return lower;
}

void CollapseBlanks(std::string& text) {
    std::size_t kept = 0;
    for (const char c : text) {
        if (c == ' ' && kept > 0 && text[kept - 1] == ' ') continue;
        text[kept++] = c;
    }
    text.resize(kept);
}

bool ReplaceAll(std::string& text, std::string_view key, std::string_view value) {
    std::size_t at = text.find(key);
    if (at == std::string::npos) return false;
    std::string done(text, 0, at);
    std::size_t rest = at;  // text from here on is still to come
    while (at != std::string::npos) {
        done.append(text, rest, at - rest);
        rest = at + key.size();
        done += value;
        // What was just written may complete the key together with its neighbours.
        std::size_t from = done.size() - std::min(done.size(), value.size() + key.size() - 1);
        for (;;) {
            const std::size_t written = done.size();
            done.append(text, rest, key.size() - 1);
            const std::size_t again = done.find(key, from);
            if (again == std::string::npos) {
                done.resize(written);
                break;
            }
            const std::size_t end = again + key.size();
            if (end > written) rest += end - written;
            std::string tail = end < written ? done.substr(end, written - end) : std::string{};
            done.resize(again);
            done += value;
            done += tail;
            from = again - std::min(again, key.size() - 1);
        }
        at = text.find(key, rest);
    }
    done.append(text, rest);
    text.swap(done);
    return true;
}

std::optional<double> ReadNumber(std::string_view text) {
    if (!text.empty() && text.front() == '+') {
        text.remove_prefix(1);
        if (!text.empty() && text.front() == '-') return std::nullopt;
    }
    if (text.empty() || text.size() > 400) return std::nullopt;
    std::array<char, 401> digits{};
    bool sawDigit = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        const bool exponent = c == 'e' || c == 'E' || c == 'd' || c == 'D';
        if (!IsDigit(c) && c != '.' && c != '-' && c != '+' && !exponent) return std::nullopt;
        if (exponent && !sawDigit) return std::nullopt;
        sawDigit = sawDigit || IsDigit(c);
        digits[i] = exponent ? 'e' : c;
    }
    double value = 0;
    const char* end = digits.data() + text.size();
    const auto read = std::from_chars(digits.data(), end, value);
    if (read.ec != std::errc{} || read.ptr != end) return std::nullopt;
    return value;
}

}  // namespace tarnwick
