#include "autobet/translate.h"

#include <gtest/gtest.h>

#include <random>
#include <set>
#include <sstream>

#include "autobet/phrases.h"
#include "autobet/scripts.h"
#include "autobet/text.h"
#include "autobet/tidy.h"
#include "table/bets.h"

namespace tarnwick {
namespace {

const std::array<std::string, 9> Names = {"", "Ann", "Fred Smith", "", "", "", "", "", "Agent 007"};

TEST(Phrases, TheTableIsWhole) {
    const auto& rows = AllPhrases();
    ASSERT_EQ(rows.size(), 929u);
    // Row numbers of the whole table: the written rows keep 1..155, the made ones follow, then the written ones again.
    const std::pair<std::size_t, Phrase> known[] = {{1, {"(", " L020 "}},
                                                    {155, {" csn#", " csn"}},
                                                    {156, {" cs99 ", " V199 "}},
                                                    {255, {" cs0 ", " V100 "}},
                                                    {256, {" csn99 ", " V899 "}},
                                                    {355, {" csn0 ", " V800 "}},
                                                    {356, {" csn ", " F800 "}},
                                                    {357, {" csn.", " F800."}},
                                                    {358, {" cs ", " F021 "}},
                                                    {359, {" cs.", " F021."}},
                                                    {360, {" cs99.", " V199."}},
                                                    {559, {" csn0.", " V800."}},
                                                    {560, {" initializing script ", " V3000 "}},
                                                    {929, {" F825 L020 L021 ", " F825 L020 S000 L021 "}}};
    for (const auto& [number, row] : known) {
        EXPECT_EQ(rows[number - 1].Row.Key, row.Key) << number;
        EXPECT_EQ(rows[number - 1].Row.Value, row.Value) << number;
    }
}

/// What is left of a key without the elements that earlier rows put into it.
std::string WithoutElements(std::string_view key) {
    std::istringstream words{std::string(key)};
    std::string word, rest;
    while (words >> word) {
        const bool element = word.size() > 1 && std::string_view("LFVS").find(word[0]) != std::string_view::npos &&
                             word.find_first_not_of("0123456789", 1) == std::string::npos;
        if (!element && word != "EX1") rest += word + " ";
    }
    return rest;
}

TEST(Phrases, KeysAreLowerCaseAndNoRowFeedsItself) {
    std::set<std::string_view> keys;
    for (const PhraseRow& row : AllPhrases()) {
        const std::string words = WithoutElements(row.Row.Key);
        EXPECT_EQ(words, LowerText(words));
        EXPECT_EQ(row.Row.Value.find(row.Row.Key), std::string_view::npos) << row.Row.Key;
        EXPECT_TRUE(keys.insert(row.Row.Key).second || row.Row.Key == " two ") << row.Row.Key;
    }
}

TEST(Phrases, LongerOnesStandBeforeWhatTheyContain) {
    const auto& rows = AllPhrases();
    for (std::size_t first = 0; first < rows.size(); ++first) {
        for (std::size_t later = first + 1; later < rows.size(); ++later) {
            const bool eats = rows[later].Row.Key.find(rows[first].Row.Key) != std::string_view::npos;
            EXPECT_TRUE(!eats || rows[first].Row.Key == " two ") << rows[first].Row.Key << rows[later].Row.Key;
        }
    }
}

TEST(Phrases, NoneButTheStatementRowsHoldAStatementWord) {
    for (const PhraseRow& row : AllPhrases()) {
        const auto words = FindKeywords(row.Row.Key);
        const bool statement =
            row.Row.Value.substr(0, 3) == " L0" && row.Row.Value.size() == 6 && row.Row.Value < " L020";
        EXPECT_EQ(!words.empty(), statement || row.Row.Key == ":") << row.Row.Key;
    }
}

/// The table as it is told: row by row, each as often as its key occurs. Notes which rows acted.
std::string ReplaceByTheBook(std::string text, std::set<std::size_t>& acted) {
    const auto collapse = [&text] {
        for (std::size_t at = text.find("  "); at != std::string::npos; at = text.find("  ")) text.erase(at, 1);
    };
    const auto run = [&text](const std::string& key, const std::string& value) {
        bool any = false;
        for (std::size_t at = text.find(key); at != std::string::npos; at = text.find(key), any = true) {
            text.replace(at, key.size(), value);
        }
        return any;
    };
    const auto& rows = AllPhrases();
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (run(std::string(rows[i].Row.Key), std::string(rows[i].Row.Value))) acted.insert(i + 1);
        collapse();
    }
    run(" ann ", " P1 ");
    run(" fred smith ", " P2 ");
    run(" agent 7 ", " P8 ");
    collapse();
    run(" the ", " ");
    run(" a ", " ");
    run("$", "");
    run("#", "");
    collapse();
    return text;
}

std::string Prepared(const std::string& line) {
    std::vector<PoolString> pool(1);
    std::string text;
    EXPECT_TRUE(ExtractStrings(TidyLine(line), pool, text)) << line;
    return text;
}

struct Meaning {
    const char* Elements;
    std::vector<const char*> Phrases;
};

// Every spelling of everything that can be said, by what it means. Bets by number are tested by their catalogue.
const Meaning Meanings[] = {
    {"L020", {"(", "[", "{"}},
    {"L021", {")", "]", "}"}},
    {"L051",
     {"<>", "are not equal to", "is not equal to", "not equal to", "does not equal", "doesnt equal", "is not", "isnt",
      "are not", "arent", "was not", "wasnt", "were not", "werent", "have not", "havent", "has not", "hasnt"}},
    {"L054",
     {"<=", "=<", "are less than or equal to", "is less than or equal to", "less than or equal to",
      "are not greater than", "is not greater than", "not greater than"}},
    {"L055",
     {">=", "=>", "are greater than or equal to", "is greater than or equal to", "greater than or equal to",
      "are not less than", "is not less than", "not less than"}},
    {"L050",
     {"=", "are equal to", "is equal to", "equal to", "equals", "equal", "from", "were", "was", "are", "have", "has",
      "is", "on", "to", "as"}},
    {"L052", {"<", "are less than", "is less than", "less than"}},
    {"L053",
     {">", "are greater than", "is greater than", "greater than", "are more than", "is more than", "more than"}},
    {"L060", {"^"}},
    {"L061", {"*", "of"}},
    {"L062", {"/"}},
    {"L063", {"\\"}},
    {"L064", {"mod"}},
    {"L065", {"+"}},
    {"L066", {"-"}},
    {"L061 .01", {"%"}},
    {"L074", {"&"}},
    {"L075", {",", ";"}},
    {"L100", {":"}},
    {"A115", {"stop autoroll/hyperdrive", "stop autorolling / hyperdrive"}},
    {"V670", {"autohandle winning bets"}},
    {"V671", {"autohandle losing bets"}},
    {"V700", {"autotake full odds"}},
    {"V701", {"autolay full odds"}},
    {"V702", {"autodown place bets"}},
    {"V703", {"autopass the dice"}},
    {"A118", {"pass the dice"}},
    {"A220", {"open/append file for output"}},
    {"A221", {"open/clear file for output"}},
    {"A223", {"output to file"}},
    {"A225", {"atm deposit", "deposit atm"}},
    {"A226", {"atm withdraw", "withdraw atm"}},
    {"A210", {"show message"}},
    {"A211", {"ask yes/no question", "yes/no question"}},
    {"V3697", {"answer"}},
    {"A212", {"play sound"}},
    {"A310", {"playback dice roll file"}},
    {"A119", {"deactivate dice roll file"}},
    {"V3005", {"dice roll file end reached"}},
    {"V3006", {"dice roll file next roll"}},
    {"V3007", {"dice roll file length"}},
    {"A213", {"activate probability file"}},
    {"A114", {"deactivate probability file"}},
    {"A116", {"show steps"}},
    {"V3655 L050", {"seed rng with"}},
    {"V3655 L050 0", {"seed rng"}},
    {"V3655", {"seed"}},
    {"V3672 L050", {"select rng"}},
    {"V3672", {"rng"}},
    {"V2502", {"actual % of rolls", "actual % rolls", "% of rolls", "% rolls"}},
    {"V2501", {"# of rolls since", "# rolls since"}},
    {"V2500", {"# rolls", "# of rolls", "number of rolls", "the # of rolls"}},
    {"V3603", {"rolls per hr", "rolls per hour"}},
    {"V3704", {"next roll is a comeout roll", "comeout roll"}},
    {"V3705", {"next roll is not a comeout roll"}},
    {"V3706", {"last roll was a comeout roll"}},
    {"V3707", {"last roll was not a comeout roll"}},
    {"V3610", {"minimum bet"}},
    {"V3611", {"maximum bet"}},
    {"V2600", {"# of comeout rolls", "# comeout rolls"}},
    {"V2601", {"% of comeout rolls", "% comeout rolls"}},
    {"V2602", {"# of passes", "# passes"}},
    {"V2603", {"% of passes", "% passes"}},
    {"V2604", {"# of misses", "# misses"}},
    {"V2605", {"% of misses", "% misses"}},
    {"V3300", {"shooter passes"}},
    {"V3301", {"shooter misses"}},
    {"V3500 L050 0 L071 V3502 L050", {"point is decided against or for", "point is decided for or against"}},
    {"V3500 L050 0 L071 V3510 L050 7 L071 V3502 L050", {"point is decided against"}},
    {"V3500 L050 0 L071 V3510 L051 7 L071 V3502 L050", {"point is decided for"}},
    {"V3709", {"point is decided"}},
    {"V3500 L051", {"point is not established on"}},
    {"V3500 L050", {"point is established on"}},
    {"V3711", {"point is not established"}},
    {"V3710", {"point is established"}},
    {"V2604 Y15", {"# of hands completed", "# hands completed", "# of seven outs", "# seven outs"}},
    {"V4606", {"# of points", "# points"}},
    {"V4607", {"% of points", "% points"}},
    {"L050 0", {"does not exist"}},
    {"L051 0", {"exists", "exist"}},
    {"V3501", {"shooters last point", "last point"}},
    {"V3500", {"shooters point", "point"}},
    {"V3708", {"seven out", "sevenout", "7 out", "7out"}},
    {"V3511", {"dice faces", "dice combination", "dice combo"}},
    {"V3510", {"dice total"}},
    {"F110", {"average bankroll", "avg bankroll"}},
    {"V655", {"last available bankroll"}},
    {"V651", {"available bankroll"}},
    {"V1302", {"high bankroll"}},
    {"V1303", {"low bankroll"}},
    {"V1300", {"beginning bankroll"}},
    {"V1301", {"bankroll"}},
    {"V1200", {"simulated hours", "simulated hrs", "hrs"}},
    {"V3691", {"comp rate"}},
    {"V1100", {"comps"}},
    {"P1", {"player1"}},
    {"P2", {"player2"}},
    {"P3", {"player3"}},
    {"P4", {"player4"}},
    {"P5", {"player5"}},
    {"P6", {"player6"}},
    {"P7", {"player7"}},
    {"P8", {"player8"}},
    {"F850", {"player name"}},
    {"F050", {"player"}},
    {"V3002", {"new shooter", "beginning new hand"}},
    {"P12", {"original shooter"}},
    {"P11", {"last shooter"}},
    {"P10", {"shooter"}},
    {"P14", {"autobettor"}},
    {"P13", {"bettor"}},
    {"P15", {"all players"}},
    {"V980", {"checkstacks", "css"}},
    {"V990", {"checkstack names", "checkstacknames", "csns", "cs names"}},
    {"V3000", {"initializing script"}},
    {"V3001", {"beginning new session"}},
    {"A101", {"start new session (preserve checkstacks)", "start new session(preserve css)"}},
    {"A102", {"start new session (preserve dice roll file)"}},
    {"A103",
     {"start new session (preserve checkstacks, dice roll file)",
      "start new session (preserve dice roll file, checkstacks)"}},
    {"A100", {"start new session"}},
    {"A450", {"buy the place bet on"}},
    {"A451", {"call off"}},
    {"A452", {"call on"}},
    {"A453", {"remove on/off button from", "remove on/off button"}},
    {"A300", {"swap"}},
    {"V4002", {"outside lay bets"}},
    {"V4001", {"inside lay bets"}},
    {"V4000", {"lay bets"}},
    {"F001", {"lay"}},
    {"V4022", {"outside dontcomeodds bets"}},
    {"V4021", {"inside dontcomeodds bets"}},
    {"V4020", {"dontcomeodds bets"}},
    {"F003", {"dontcomeodds"}},
    {"V4012", {"outside dontcome bets"}},
    {"V4011", {"inside dontcome bets"}},
    {"V4010", {"dontcome bets"}},
    {"F002 L020", {"dontcome("}},
    {"V048", {"dontcome"}},
    {"V4042", {"outside comeodds bets"}},
    {"V4041", {"inside comeodds bets"}},
    {"V4040", {"comeodds bets"}},
    {"F005", {"comeodds"}},
    {"V4032", {"outside come bets"}},
    {"V4031", {"inside come bets"}},
    {"V4030", {"come bets"}},
    {"F004 L020", {"come("}},
    {"V045", {"come"}},
    {"V4052", {"outside place bets"}},
    {"V4051", {"inside place bets"}},
    {"V4050", {"place bets"}},
    {"F006", {"place"}},
    {"V4062", {"outside buy bets"}},
    {"V4061", {"inside buy bets"}},
    {"V4060", {"buy bets"}},
    {"F007", {"buy"}},
    {"V044", {"passlineodds"}},
    {"V043", {"passline"}},
    {"V047", {"dontpassodds"}},
    {"V046", {"dontpass"}},
    {"V049", {"field"}},
    {"V4070", {"big bets"}},
    {"F008", {"big"}},
    {"V4071", {"hardway bets", "hard bets"}},
    {"F009", {"hard"}},
    {"V056", {"two"}},
    {"V057", {"three"}},
    {"V058", {"seven"}},
    {"V059", {"eleven"}},
    {"V060", {"twelve"}},
    {"V061", {"craps"}},
    {"V062", {"cande"}},
    {"V064", {"world", "whirl"}},
    {"V063", {"horn"}},
    {"V066", {"under7"}},
    {"V065", {"over7"}},
    {"V4072", {"hop bets"}},
    {"F010", {"hop"}},
    {"V084", {"allsmall"}},
    {"V086", {"makeall"}},
    {"V085", {"alltall"}},
    {"V087", {"4rollsno7"}},
    {"V088", {"point7"}},
    {"V089", {"7point7"}},
    {"V090", {"midway"}},
    {"V091", {"fire"}},
    {"V4100", {"bets"}},
    {"H1", {"current hand"}},
    {"H2", {"last hand"}},
    {"H3", {"all hands", "current session"}},
    {"H4", {"last session"}},
    {"H5", {"all sessions"}},
    {"X1", {"wagers", "wagered", "wager"}},
    {"X2", {"wins", "win", "has won", "won"}},
    {"X3", {"losses", "loss", "loses", "lose", "has lost", "lost"}},
    {"X5", {"net %"}},
    {"X4", {"net"}},
    {"X6", {"established"}},
    {"X7", {"passed"}},
    {"X8", {"missed"}},
    {"Y32", {"current #", "current#"}},
    {"Y33", {"current $", "current$"}},
    {"Y21", {"total #", "total#"}},
    {"Y22", {"total $", "total$"}},
    {"Y0", {"total"}},
    {"Y14", {"naturals", "natural"}},
    {"Y15", {"points"}},
    {"Y23", {"high $", "high$"}},
    {"Y24", {"low $", "low$"}},
    {"Y29", {"avg # / hr", "avg# / hr", "average # / hour"}},
    {"Y30", {"avg $ / hr", "avg$ / hr", "average $ / hour"}},
    {"Y25", {"avg $", "avg$"}},
    {"Y26", {"last dec $", "last dec$", "last $", "last$", "last"}},
    {"Y27", {"last roll #", "last roll#"}},
    {"Y28", {"last roll $", "last roll$"}},
    {"Y31", {"expctd value", "expected value"}},
    {"Y34", {"working"}},
    {"Y36", {"called off"}},
    {"Y35", {"called on"}},
    {"Y37", {"vig"}},
    {"X1 Y27 L053 0", {"resolves", "resolve"}},
    {"V3512", {"die1"}},
    {"V3513", {"die2"}},
    {"F190", {"die"}},
    {"0", {"all rolls", "false"}},
    {"1", {"one", "once"}},
    {"2", {"twice"}},
    {"V3693", {"date/time"}},
    {"S-01", {"date$"}},
    {"S-02", {"time$"}},
    {"V3696", {"timer"}},
    {"F825", {"input$"}},
    {"F125", {"input"}},
    {"F126", {"highest", "largest"}},
    {"F127", {"lowest", "smallest"}},
    {"F128", {"average", "avg", "mean"}},
    {"F129", {"standard deviation", "stddev"}},
    {"F130", {"sum"}},
    {"F131", {"count"}},
    {"F118", {"length", "len"}},
    {"A489", {"round up to the nearest"}},
    {"A488", {"round down to the nearest"}},
    {"A487", {"round to the nearest"}},
    {"L012", {"endif"}},
    {"L001", {"if"}},
    {"L009", {"then"}},
    {"L011", {"elseif"}},
    {"L010", {"else"}},
    {"L014", {"goto"}},
    {"L015", {"gosub"}},
    {"L013", {"return"}},
    {"F100", {"sqr"}},
    {"F101", {"int"}},
    {"F102", {"abs"}},
    {"F104", {"asc"}},
    {"V3698", {"rnd"}},
    {"F802", {"right$"}},
    {"F801", {"left$"}},
    {"F805", {"mid$"}},
    {"F803", {"removeleft$"}},
    {"F804", {"removeright$"}},
    {"F806", {"removemid$"}},
    {"F809", {"insert$"}},
    {"F203", {"instr"}},
    {"F117", {"val"}},
    {"F810", {"str$"}},
    {"F811", {"chr$"}},
    {"F812", {"space$"}},
    {"F811 L020 13 L021 L074 F811 L020 10 L021", {"cr", "newline", "new line"}},
    {"F811 L020 9 L021", {"tab"}},
    {"A481", {"bet"}},
    {"A482", {"multiply by", "multiply"}},
    {"A483", {"divide by", "divide"}},
    {"A484", {"add"}},
    {"A485", {"subtract"}},
    {"A460", {"clear", "remove", "take down", "takedown"}},
    {"L070", {"not"}},
    {"L071", {"and"}},
    {"L073", {"xor"}},
    {"L072", {"or"}},
    {"-1", {"true"}},
    {"6", {"yes"}},
    {"7", {"no"}},
    {"L018", {"exitdo"}},
    {"L016", {"do"}},
    {"L017", {"loop"}},
    {"I002", {"any"}},
    {"I003", {"all"}},
    {"S-15", {"from roll"}},
    {"F125 L020 S000 L021", {"input()", "input[]"}},
    {"F825 L020 S000 L021", {"input$()"}},
    // beginnings of words
    {"Y29", {"avg # / hour"}},
    {"V105", {"checkstack5", "CheckStack#5", "cs5", "CS#5", "checkstack5.win", "cs5.anything"}},
    {"V199", {"cs99"}},
    {"V100", {"cs0"}},
    {"V805", {"checkstackname5", "csn5", "cs name5", "csn#5", "name checkstack5", "csn5.x"}},
    {"F021 L020", {"checkstack(", "cs(", "cs.x("}},
    {"F800 L020", {"checkstack name(", "csn(", "csn.x("}},
    {"F021.x", {"cs.x"}},
    {"F800.x", {"csn.x"}},
    {"P1", {"Ann", "ANN"}},
    {"P2", {"fred  smith"}},
    {"P8", {"Agent 007", "agent 7"}},
};

std::string Tokens(const std::string& line) {
    const std::string text = ReplacePhrases(Prepared(line), Names);
    std::string tokens(TrimBlanks(text));
    // A dotted suffix is dropped when the token is read.
    const std::size_t point = tokens.find('.');
    const bool suffix = point != std::string::npos && tokens[0] == 'V' && tokens.find(' ') == std::string::npos;
    return suffix ? tokens.substr(0, point) : tokens;
}

TEST(Translate, EveryPhraseMeansWhatItSays) {
    for (const Meaning& m : Meanings) {
        for (const char* phrase : m.Phrases) {
            std::string elements = m.Elements;
            if (elements == "F021 L020" || elements == "F800 L020") {
                const std::string dotted = std::string(phrase).find('.') == std::string::npos ? "" : ".x";
                elements.insert(4, dotted);
            }
            EXPECT_EQ(Tokens(phrase), elements) << phrase;
        }
    }
}

std::string Joined(std::string_view name) {
    std::string word;
    for (const char c : name) {
        if (c != ' ' && c != '\'') word += c;
    }
    return word;
}

std::string ThreeDigits(int n) { return (n < 10 ? "00" : n < 100 ? "0" : "") + std::to_string(n); }

TEST(Translate, BetsAreCalledAsInTheCatalogue) {
    for (int row = 1; row <= Row::LastBet; ++row) {
        std::string word = Joined(BetName(row));
        const std::size_t odds = word.find("Odds");
        const bool byNumber = odds != std::string::npos && IsDigit(word[odds - 1]);
        if (byNumber) {  // "Come4Odds" is written ComeOdds4
            const std::size_t digit = word.find_first_of("0123456789");
            word = word.substr(0, digit) + "Odds" + word.substr(digit, odds - digit);
        }
        EXPECT_EQ(Tokens(word), "V" + ThreeDigits(row)) << word;
        EXPECT_EQ(Tokens("(" + word + ")"), "L020 V" + ThreeDigits(row) + " L021") << word;
        if (!IsHop(row)) continue;
        const std::string turned = {'H', 'o', 'p', word[4], word[3]};
        EXPECT_EQ(Tokens(turned), "V" + ThreeDigits(row)) << turned;
    }
    for (int die = 1; die <= 2; ++die) {
        for (int face = 1; face <= 6; ++face) {
            const std::string phrase = "Die" + std::to_string(die) + " Face" + std::to_string(face);
            EXPECT_EQ(Tokens(phrase), "Y" + std::to_string(72 + 6 * (die - 1) + face + 5)) << phrase;
        }
    }
}

TEST(Translate, SentencesFollowTheOrderOfTheTable) {
    const std::pair<const char*, const char*> cases[] = {
        {"If the dice total is 7 then", "L001 V3510 L050 7 L009"},
        {"a point is established on a 6", "V3500 L050 6"},
        {"bankroll is greater than or equal to $1,000", "V1301 L055 1 L075 0"},
        {"5% of bankroll", "5 L061 .01 L061 V1301"},
        {"stop autorolling/hyperdrive : pass the dice", "A115 L100 A118"},
        {"playback dice roll file S from roll # 5", "A310 s S-15 5"},
        {"name CheckStack5 as x", "V805 L050 x"},
        {"bet 6 on Place(8) for", "A481 6 L050 F006 L020 8 L021 for"},
        {"# of rolls since 7", "V2501 7"},
        {"the # of passes for the last session", "V2602 for H4"},
        {"actual % of rolls 5.2", "V2502 5.2"},
        // What a reader may not expect, and what stays so.
        {"dice total is seven", "V3510 L050 V058"},
        {"bet two on field", "A481 V056 L050 V049"},
        {"bankroll is no less than 500", "V1301 L050 7 L052 500"},
        {"# of shooter passes > 2", "V3300 L053 2"},
        {"50% of rolls", "50 V2502"},
        {"5% of passes", "5 V2603"},
        {"point is 6 or 8", "V3500 L050 6 L072 8"},
        {"not point is decided for 6", "L070 V3500 L050 0 L071 V3510 L051 7 L071 V3502 L050 6"},
        {"is not less than or equal to", "L055 L072 L050"},
        {"was not greater than", "L050 L054"},
        {"place6 is working", "V033 L050 Y34"},
        {"is called off", "L050 Y36"},
        {"place6 called off", "V033 Y36"},
        {"has not won", "L051 X2"},
        {"Pass Line", "pass line"},
        {"Place 6", "F006 6"},
        {"C and E", "c L071 e"},
        {"checkstack 5", "F021 5"},
        {"hours", "V1200"},
        {"avg $ / hrs", "Y25 L062 V1200"},
        {"come-out", "V045 L066 out"},
        {"12:30", "12 L100 30"},
        {"all rolls", "0"},
        {"# rolls per hour", "V2500 per hr"},
        {"place6 resolves", "V033 X1 Y27 L053 0"},
        {"seed rng = 5", "V3655 L050 0 L050 5"},
        {"select rng = 3", "V3672 L050 L050 3"},
        {"cs01", "cs01"},
        {"cs5.win count", "V105.win F131"},
        {"hourly averages checkstacking", "hrly avgs csing"},
        {"point is on 6", "V3500 L050 L050 6"},
        {"remove 5 from Place6", "A460 5 L050 V033"},
        {"total $ 4rollsno7", "Y22 V087"},
        {"cs1 = 1e20", "V101 L050 1e20"},
        {"cs1\t=\t5", "V101 L050 5"},
        {"are named", "L050 named"},
    };
    for (const auto& [line, elements] : cases)
        EXPECT_EQ(TrimBlanks(ReplacePhrases(Prepared(line), Names)), elements) << line;
}

TEST(Translate, GivesWhatTheRowsGiveInTheirOrder) {
    std::set<std::size_t> acted;
    std::vector<std::string> words;
    const auto compare = [&acted](const std::string& line) {
        const std::string prepared = Prepared(line);
        ASSERT_EQ(ReplacePhrases(prepared, Names), ReplaceByTheBook(prepared, acted)) << line;
    };
    for (const Meaning& m : Meanings) {
        for (const char* phrase : m.Phrases) {
            compare(phrase);
            words.emplace_back(phrase);
        }
    }
    for (int row = 1; row <= Row::LastBet; ++row) words.push_back(Joined(BetName(row)));
    for (const char* family : {"ComeOdds", "DontComeOdds"}) {
        for (const int n : {4, 5, 6, 8, 9, 10}) words.push_back(family + std::to_string(n));
    }
    for (const char* hop : {"31", "41", "51", "61", "32", "42", "52", "62", "43", "53", "63", "54", "64"}) {
        words.push_back("hop" + std::string(hop));
    }
    for (int n = 0; n <= 99; ++n) {
        for (const char* form : {"cs", "csn"}) {
            words.push_back(form + std::to_string(n));
            words.push_back(form + std::to_string(n) + ".x");
        }
    }
    for (int die = 1; die <= 2; ++die) {
        for (int face = 1; face <= 6; ++face)
            words.push_back("die" + std::to_string(die) + " face" + std::to_string(face));
    }
    words.insert(words.end(), {"a", "the", "#", "$", "5", "7", "of", "hour", "average", "number", "x", "(", ")", "%"});
    for (const std::string& word : words) compare(word);
    // All rows can act but the second "two", which the bet takes, and "go to", which is one word in a tidy line.
    std::set<std::size_t> idle;
    for (std::size_t i = 1; i <= 929; ++i) {
        if (acted.count(i) == 0) idle.insert(i);
    }
    EXPECT_EQ(idle, (std::set<std::size_t>{396 + 400, 456 + 400}));

    std::mt19937 random(5);
    for (int n = 0; n < 3000; ++n) {
        std::string line;
        for (int i = 0; i < 6; ++i) line += words[random() % words.size()] + (random() % 8 != 0 ? " " : "");
        compare(line);
    }
}

TEST(Translate, QuotedTextsKeepTheirCaseAndOrder) {
    Compilation c =
        test::Script("show message \"Hello  THE if\" & \"\" & \"x\": \"a\"\n\"it's\" 'not \"this\"\n\"open");
    ASSERT_EQ(TranslatePhrases(c), std::nullopt);
    EXPECT_EQ(test::Short(c), "A210 S1 & S0 & S2 | S3 | S4 | S5");
    ASSERT_EQ(c.Pool.size(), 6u);
    EXPECT_EQ(c.Pool[1].Text, "Hello  THE if");
    EXPECT_EQ(c.Pool[4].Text, "it's");
    EXPECT_EQ(c.Pool[5].Text, "open");

    std::vector<PoolString> pool(1);
    std::string text;
    EXPECT_FALSE(ExtractStrings("an \"untidy line", pool, text));
}

TEST(Translate, MarkersHoldTheColumnsOfTheRawLine) {
    const std::pair<const char*, const char*> cases[] = {
        {"\n'x\n", ""},
        {"cs1 = 5", "V101 = 5 |2:0"},
        {"If cs1=1 Then cs2=3", "IF |1:2 V101 = 1 |1:9 THEN |1:13 V102 = 3 |2:0"},
        {"  if 5 then", "IF |1:4 5 |1:7 THEN |2:0"},
        {":cs1 = 5", "V101 = 5 |2:0"},
        {"cs1 = 1 : : cs2 = 2", "V101 = 1 |1:8 V102 = 2 |2:0"},
        {"cs1 = 1\n   : cs2 = 2", "V101 = 1 |2:3 V102 = 2 |3:0"},
        {"cs1 = 1 Goto 10", "V101 = 1 GOTO 10 |2:0"},
        {"Then Goto 10 End   If", "THEN |1:4 GOTO 10 |1:13 ENDIF |2:0"},
        {"cs1 = 5\n\n\n'c\ncs2 = 5", "V101 = 5 |5:0 V102 = 5 |6:0"},
        {"\"\xC3\xA9\xC3\xA9\": do", "S1 |1:4 DO |2:0"},
        {"$if then", "IF |1:3 THEN |2:0"},
        {"loop exitdo do", "LOOP |1:4 EXITDO |1:11 DO |2:0"},
    };
    for (const auto& [text, elements] : cases) {
        Compilation c = test::Script(text);
        const auto error = TranslatePhrases(c);
        ASSERT_FALSE(error) << text << error->Text;
        EXPECT_EQ(test::ShortWithPlaces(c), elements) << text;
    }
}

TEST(Translate, AKeywordAtTheHeadFollowsTheMarkerOfItsLine) {
    Compilation c = test::Script("\n  :if 5");
    ASSERT_EQ(TranslatePhrases(c), std::nullopt);
    EXPECT_EQ(c.Elements[1], (Element{Code::ScriptStart, 1}));
    EXPECT_EQ(c.Elements[2], (Element{Code::Marker + 2, 2}));
    EXPECT_EQ(c.Elements[3], (Element{Code::If, 0}));
}

TEST(Translate, UnknownWordsAreShownAsTheyStand) {
    const std::pair<const char*, const char*> cases[] = {
        {"x = 5", "1:0-1:0 Unknown or misplaced element:\n\nx"},
        {"cs1 = 5\n Bet 5 on PASS line", "2:0-2:0 Unknown or misplaced element:\n\npass"},
        {"if playername = 5 then",
         "1:0-1:0 Unknown player\n\nPlease enter actual name of player or refer to player's position such as player1, "
         "player2, etc."},
        {"wins session", "1:0-1:0 Please specify:\n\ncurrent session, last session, or all sessions."},
        {"wins hand", "1:0-1:0 Please specify:\n\ncurrent hand, last hand, or all hands."},
        {"cs1 = 1e999", "1:0-1:0 Unknown or misplaced element:\n\n1e999"},
        {"cs1 = nan", "1:0-1:0 Unknown or misplaced element:\n\nnan"},
        {"exit do", "1:0-1:0 Unknown or misplaced element:\n\nexit"},
        {"#if 5", "1:0-1:0 Unknown or misplaced element:\n\nif"},
    };
    for (const auto& [text, expected] : cases) EXPECT_EQ(test::After("translate", text), expected) << text;
}

TEST(NameTest, RefusesWhatScriptsCouldNotTellFromTheirWords) {
    const std::string numeric =
        "Unfortunately, a player's name can't be all numeric because it would cause confusion in auto-betting.\n\n"
        "Please enter a different name.";
    for (const char* name : {"5", "5.5", "1e5", " 12 "}) EXPECT_EQ(NameRefusal(name, Names), numeric) << name;
    EXPECT_EQ(NameRefusal("Bet", Names),
              "Unfortunately, \"Bet\" contains a word, phrase, or symbol used in auto-betting and therefore can't be "
              "used.\n\nPlease enter a different name.");
    for (const char* name : {"The Shooter", "Jean-Luc", "Tom & Jerry", "hourglass", "player3", "Mr. Field", "Ann",
                             "Big Ann", "agent 7", "CS5", "Ann\tLee"}) {
        EXPECT_NE(NameRefusal(name, Names), "") << name;
    }
    for (const char* name : {"Bettina", "Anna", "O'Brien", "Mr. 5", "Agent", "Jos\xC3\xA9", "Shooters", ""}) {
        EXPECT_EQ(NameRefusal(name, Names), "") << name;
    }
    EXPECT_EQ(NameRefusal("Ann Lee", Names, 1), "") << "the name that is being changed does not count";
}

}  // namespace
}  // namespace tarnwick
