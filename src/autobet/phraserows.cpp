#include <array>
#include <string>

#include "autobet/phrases.h"

namespace tarnwick {

LetterPairs::LetterPairs(std::string_view text) {
    for (std::size_t i = 1; i < text.size(); ++i) {
        const unsigned hash = static_cast<unsigned char>(text[i - 1]) * 37u + static_cast<unsigned char>(text[i]) * 11u;
        std::uint64_t& word = (hash & 64u) != 0 ? High : Low;
        word |= std::uint64_t{1} << (hash & 63u);
    }
}

namespace {

struct TextPair {
    std::string Key, Value;
};

std::string TwoDigits(int n) { return (n < 10 ? "0" : "") + std::to_string(n); }

void AddStacks(std::vector<TextPair>& rows, const std::string& word, const std::string& code, const std::string& end) {
    // From 99 down, so that no key is met ahead of a longer one that begins with it.
    for (int n = 99; n >= 0; --n)
        rows.push_back({" " + word + std::to_string(n) + end, " " + code + TwoDigits(n) + end});
}

std::vector<TextPair> StackRows() {
    std::vector<TextPair> rows;
    rows.reserve(GeneratedPhrases);
    AddStacks(rows, "cs", "V1", " ");
    AddStacks(rows, "csn", "V8", " ");
    rows.push_back({" csn ", " F800 "});
    rows.push_back({" csn.", " F800."});
    rows.push_back({" cs ", " F021 "});
    rows.push_back({" cs.", " F021."});
    AddStacks(rows, "cs", "V1", ".");
    AddStacks(rows, "csn", "V8", ".");
    return rows;
}

std::vector<PhraseRow> MakeAll() {
    static const std::vector<TextPair> stacks = StackRows();
    constexpr std::size_t ahead = 155;  // listed rows ahead of those of the CheckStacks
    std::vector<PhraseRow> rows;
    rows.reserve(ListedPhrases + GeneratedPhrases);
    const auto add = [&rows](const Phrase& p) { rows.push_back({p, LetterPairs(p.Key)}); };
    for (std::size_t i = 0; i < ahead; ++i) add(PhraseList[i]);
    for (const TextPair& row : stacks) add({row.Key, row.Value});
    for (std::size_t i = ahead; i < ListedPhrases; ++i) add(PhraseList[i]);
    return rows;
}

}  // namespace

const std::vector<PhraseRow>& AllPhrases() {
    static const std::vector<PhraseRow> rows = MakeAll();
    return rows;
}

}  // namespace tarnwick
