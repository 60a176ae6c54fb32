// The language's reference, doc/auto-bet.md: its examples hold, and it tells every phrase.
//
// Fenced blocks: "autobet" compiles; "autobet-error" does not, and the quoted lines behind it are the message;
// "autobet-values" has an expression a line, with its value behind an apostrophe.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <sstream>

#include "autobet/phrases.h"
#include "autobet/scripttable.h"

namespace tarnwick {
namespace {

struct Block {
    int Line = 0;  ///< of its first line, from 1
    std::string Kind;
    std::vector<std::string> Lines;
    std::string Quoted;  ///< the lines that begin with ">" behind it
};

std::vector<std::string> ReferenceLines() {
    std::ostringstream text;
    text << std::ifstream("doc/auto-bet.md", std::ios::binary).rdbuf();
    return LinesOf(text.str());
}

/// What follows a ">" and a blank; nothing of a line that is not quoted.
bool Unquoted(const std::string& line, std::string& text) {
    if (line.empty() || line[0] != '>') return false;
    text = line.size() > 2 ? line.substr(2) : std::string();
    return true;
}

std::vector<Block> BlocksOf(const std::vector<std::string>& lines) {
    std::vector<Block> blocks;
    bool inside = false, behind = false;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const bool fence = lines[i].compare(0, 3, "```") == 0;
        if (fence && !inside) blocks.push_back({static_cast<int>(i) + 2, lines[i].substr(3), {}, {}});
        if (inside && !fence) blocks.back().Lines.push_back(lines[i]);
        std::string quoted;
        if (behind && !fence && Unquoted(lines[i], quoted)) {
            std::string& all = blocks.back().Quoted;
            all += (all.empty() ? "" : "\n") + quoted;
        } else {
            behind = false;
        }
        if (!fence) continue;
        behind = inside;
        inside = !inside;
    }
    EXPECT_FALSE(inside) << "a block is not closed";
    return blocks;
}

Compilation ScriptOf(const Block& block) {
    Compilation c;
    c.PlayerNames[1] = "Ann";
    c.PlayerNames[2] = "Bob";
    c.Lines = block.Lines;
    return c;
}

TEST(LanguageReference, ExamplesCompileOrFailAsTold) {
    int good = 0, bad = 0;
    for (const Block& block : BlocksOf(ReferenceLines())) {
        const std::string place = "doc/auto-bet.md:" + std::to_string(block.Line);
        if (block.Kind == "autobet-values") continue;
        Compilation c = ScriptOf(block);
        const auto error = CompileAutobets(c);
        if (block.Kind == "autobet") {
            EXPECT_EQ(error, std::nullopt) << place << ": " << (error ? error->Text : "");
            ++good;
        } else if (block.Kind == "autobet-error") {
            EXPECT_NE(block.Quoted, "") << place << ": no message behind the block";
            EXPECT_EQ(error ? error->Text : "compiles", block.Quoted) << place;
            ++bad;
        } else {
            ADD_FAILURE() << place << ": unknown kind of block \"" << block.Kind << '"';
        }
    }
    EXPECT_GT(good, 10);
    EXPECT_GT(bad, 10);
}

TEST(LanguageReference, ValuesAreAsTold) {
    ScriptTable table(2);
    int values = 0;
    for (const Block& block : BlocksOf(ReferenceLines())) {
        if (block.Kind != "autobet-values") continue;
        for (const std::string& line : block.Lines) {
            const std::size_t comment = line.rfind("' ");
            ASSERT_NE(comment, std::string::npos) << line;
            EXPECT_EQ(table.TextWorth("\"\" & (" + line.substr(0, comment) + ")"), line.substr(comment + 2)) << line;
            ++values;
        }
    }
    EXPECT_GT(values, 10);
}

// --- every phrase is told ---

void Replace(std::string& text, const std::string& what, const std::string& with) {
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + with.size())) {
        text.replace(at, what.size(), with);
    }
}

/// Lower case, one blank at each end and between words.
std::string Spaced(const std::string& text) {
    std::string out = " ";
    for (const char c : text) {
        const char lower = 'A' <= c && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
        if (lower != ' ' || out.back() != ' ') out += lower;
    }
    if (out.back() != ' ') out += ' ';
    return out;
}

std::string WithLooseSigns(const std::string& text) {
    std::string out;
    for (const char c : text) {
        const bool sign = std::string_view("()/%,").find(c) != std::string_view::npos;
        out += sign ? std::string{' ', c, ' '} : std::string(1, c);
    }
    return Spaced(out);
}

/// A phrase in the spellings that the table brings all others to.
std::string WithPlainWords(std::string text) {
    for (const auto& [word, plain] : {std::pair{" hour", " hr"},
                                      {" average", " avg"},
                                      {" number ", " # "},
                                      {" # of ", " # "},
                                      {" autorolling ", " autoroll "},
                                      {" checkstack", " cs"}}) {
        Replace(text, word, plain);
    }
    return text;
}

/// Whatever the reference sets in the type of programs: blocks line by line, and what stands between backquotes.
std::vector<std::string> CodeOf(const std::vector<std::string>& lines) {
    std::vector<std::string> code;
    for (const Block& block : BlocksOf(lines)) code.insert(code.end(), block.Lines.begin(), block.Lines.end());
    bool fenced = false;
    for (const std::string& line : lines) {
        if (line.compare(0, 3, "```") == 0) fenced = !fenced;
        if (fenced) continue;
        for (std::size_t from = line.find('`'); from != std::string::npos;) {
            const std::size_t to = line.find('`', from + 1);
            if (to == std::string::npos) break;
            code.push_back(line.substr(from + 1, to - from - 1));
            from = line.find('`', to + 1);
        }
    }
    return code;
}

/// The key of a row as a user writes it. Empty for the rows that only finish what others have begun.
std::string Writable(const Phrase& row) {
    std::string key(row.Key);
    for (const auto& [element, sign] : {std::pair{" L062 ", " / "},
                                        {" L061 .01 ", " % "},
                                        {" L020 ", " ( "},
                                        {" L021 ", " ) "},
                                        {" L075 ", " , "},
                                        {" V980 ", " css "}}) {
        Replace(key, element, sign);
    }
    const bool inner = key.find_first_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ") != std::string::npos;
    return inner ? std::string() : key;
}

TEST(LanguageReference, TellsEveryPhrase) {
    std::vector<std::string> spellings;
    for (const std::string& code : CodeOf(ReferenceLines())) {
        spellings.push_back(Spaced(code));
        spellings.push_back(WithLooseSigns(code));
        spellings.push_back(WithPlainWords(spellings.back()));
    }
    int told = 0;
    for (std::size_t i = 0; i < PhraseList.size(); ++i) {
        const std::string key = Writable(PhraseList[i]);
        if (key.empty()) continue;
        const bool found = std::any_of(spellings.begin(), spellings.end(),
                                       [&key](const std::string& s) { return s.find(key) != std::string::npos; });
        EXPECT_TRUE(found) << "doc/auto-bet.md doesn't tell \"" << key << "\"";
        ++told;
    }
    EXPECT_GE(told, 520);
}

}  // namespace
}  // namespace tarnwick
