// The phrases of the language: an ordered table of replacements. The order is the grammar.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace tarnwick {

struct Phrase {
    std::string_view Key;
    std::string_view Value;
};

constexpr std::size_t ListedPhrases = 525;
constexpr std::size_t GeneratedPhrases = 404;

/// The rows that are written down: 1..155 and 160..529, in order.
extern const std::array<Phrase, ListedPhrases> PhraseList;

/// Pairs of neighbouring characters that a text holds, hashed to 128 bits. A text can hold a key only if it has all
/// bits of the key's.
struct LetterPairs {
    std::uint64_t Low = 0, High = 0;

    explicit LetterPairs(std::string_view text);
    bool Holds(const LetterPairs& part) const { return (part.Low & ~Low) == 0 && (part.High & ~High) == 0; }
};

struct PhraseRow {
    Phrase Row;
    LetterPairs Pairs;
};

/// All 929 fixed rows in their order: the listed rows 1..155, the rows made for the hundred CheckStacks, the listed
/// rows 160..529. Made once; lives as long as the program.
const std::vector<PhraseRow>& AllPhrases();

}  // namespace tarnwick
