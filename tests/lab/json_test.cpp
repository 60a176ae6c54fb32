#include "lab/json.h"

#include <gmock/gmock.h>

#include <limits>

namespace tarnwick::lab {
namespace {

TEST(Json, StringsAreEscapedAndAlwaysUtf8) {
    struct Case {
        std::string Text, Json;
    };
    const Case cases[] = {
        {"", R"("")"},
        {"Don't Pass", R"("Don't Pass")"},
        {"say \"hard\" \\ 8", R"("say \"hard\" \\ 8")"},
        {"a\nb\tc\rd", R"("a\nb\tc\rd")"},
        {std::string("\0\x01\x1f\x7f", 4), R"("\u0000\u0001\u001f\u007f")"},
        {"J\xC3\xBCrgen \xE2\x82\xAC \xF0\x9F\x8E\xB2", "\"J\xC3\xBCrgen \xE2\x82\xAC \xF0\x9F\x8E\xB2\""},
        {"J\xFCrgen", R"("J\ufffdrgen")"},                      // no UTF-8 at all
        {"\xC3", R"("\ufffd")"},                                // cut off
        {"\xE2\x82", R"("\ufffd\ufffd")"},                      // cut off after two
        {"\xC0\xAF", R"("\ufffd\ufffd")"},                      // overlong
        {"\xE0\x80\x80", R"("\ufffd\ufffd\ufffd")"},            // overlong
        {"\xED\xA0\x80", R"("\ufffd\ufffd\ufffd")"},            // a surrogate
        {"\xF4\x90\x80\x80", R"("\ufffd\ufffd\ufffd\ufffd")"},  // beyond U+10FFFF
        {"\xF0\x9F\x8E\x41", R"("\ufffd\ufffd\ufffdA")"},       // the next character is kept
    };
    for (const Case& c : cases) EXPECT_EQ(JsonString(c.Text), c.Json);
}

TEST(Json, NestsWithCommasWhereTheyBelongAndKeysInOrder) {
    JsonWriter json;
    json.BeginObject().Field("z", 1).Field("a", "text").Key("empty").BeginList().EndList();
    json.Key("list").BeginList().Value(1).BeginObject().EndObject().BeginList().Value(true).Value(false).EndList();
    json.EndList().Key("inner").BeginObject().Field("k", std::int64_t{-5}).EndObject().Field("last", 2).EndObject();
    EXPECT_EQ(json.Text(), R"({"z":1,"a":"text","empty":[],"list":[1,{},[true,false]],"inner":{"k":-5},"last":2})");
}

TEST(Json, NumbersAndAmounts) {
    JsonWriter json;
    json.BeginList();
    json.Value(Dollars(10)).Value(currency{5'000}).Value(currency{-12'345}).Value(currency{});
    json.Value(-1.5).Value(0.1).Value(std::numeric_limits<double>::quiet_NaN());
    json.Value(std::numeric_limits<std::uint64_t>::max()).Value(std::numeric_limits<std::int64_t>::min());
    json.EndList();
    EXPECT_EQ(json.Text(), R"(["10","0.5","-1.2345","0",-1.5,0.1,null,18446744073709551615,-9223372036854775808])");
}

}  // namespace
}  // namespace tarnwick::lab
