// Script files as the laboratory reads them.

#include "lab/scripttext.h"

#include <gmock/gmock.h>

namespace tarnwick::lab {
namespace {

TEST(ScriptTextTest, LinesComeOutOfAnyBytes) {
    using namespace std::string_view_literals;
    struct Case {
        std::string_view Bytes;
        std::vector<std::string> Lines;
    };
    const Case cases[] = {
        {"", {""}},
        {"a", {"a"}},
        {"a\n", {"a"}},
        {"a\n\n", {"a", ""}},
        {"a\r\nb\rc\nd", {"a", "b", "c", "d"}},
        {"a\n\rb", {"a", "", "b"}},
        {"\xEF\xBB\xBF", {""}},
        {"\xEF\xBB\xBF"
         "a\xEF\xBB\xBF",
         {"a\xEF\xBB\xBF"}},
        {"h\xC3\xA9", {"h\xC3\xA9"}},
        {"h\xE9 \x80\n\xC3\xA9", {"h\xC3\xA9 \xE2\x82\xAC", "\xC3\x83\xC2\xA9"}},
        {"a\0b"sv, {std::string("a\0b", 3)}},
    };
    for (const Case& c : cases) EXPECT_EQ(ScriptLinesOf(c.Bytes), c.Lines) << testing::PrintToString(c.Bytes);
}

TEST(ScriptTextTest, WhatIsNoFileIsRefusedAndChangesNothing) {
    for (const char* path : {"", "/nonexistent/x.bet", "."}) {
        std::vector<std::string> lines = {"kept"};
        EXPECT_NE(ReadScriptLines(path, lines), "") << path;
        EXPECT_EQ(lines.front(), "kept") << path;
    }
}

}  // namespace
}  // namespace tarnwick::lab
