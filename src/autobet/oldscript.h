// Scripts of earlier versions: records of 256 bytes whose rows hold an older wording of the language.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "autobet/scriptfile.h"

namespace tarnwick {

/// An old wording and what it is today. The rows act in their order, each on what the ones before it left; "r*ll" and
/// "w**n" in a replacement hide a word from the rows that follow, until late rows turn it back.
struct OldPhrase {
    int Number;               ///< from 1
    std::string_view Search;  ///< in small letters; found in capitals too
    std::string_view Replacement;
};
extern const std::array<OldPhrase, 394> OldPhrases;

/// Which records `bytes` begins like; Text for anything else.
ScriptForm OldScriptForm(std::string_view bytes);

/// The lines of today's language for the records in `bytes`, the first of which (the head) is skipped. Never empty.
/// Rows that the rewriting can't make right are the user's to repair.
std::vector<std::string> ConvertOldScript(std::string_view bytes);

/// One row's text, without blanks behind, in today's words, with one blank ahead.
std::string RewriteOldRow(std::string_view text);

/// `phrase` applied to a line: every occurrence is replaced, and the search goes on behind the replacement. `lower` is
/// the line in small letters, before and after.
void ReplaceOldPhrase(std::string& line, std::string& lower, const OldPhrase& phrase);

}  // namespace tarnwick
