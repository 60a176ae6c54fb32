// Writes JSON: compact, keys in the order given.
#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "table/currency.h"

namespace tarnwick::lab {

/// Whether `text` is well-formed UTF-8.
bool IsUtf8(std::string_view text);

/// `text` as a JSON string with its quotes. Bytes that are no UTF-8 become U+FFFD.
std::string JsonString(std::string_view text);

/// Builds one JSON value. Objects and lists are opened and closed by the caller, who must pair them; inside an object a
/// Key goes before each value.
class JsonWriter {
  public:
    JsonWriter& BeginObject() { return Open('{'); }
    JsonWriter& EndObject() { return Close('}'); }
    JsonWriter& BeginList() { return Open('['); }
    JsonWriter& EndList() { return Close(']'); }
    JsonWriter& Key(std::string_view name);

    JsonWriter& Value(std::string_view text) { return Raw(JsonString(text)); }
    JsonWriter& Value(const char* text) { return Value(std::string_view(text)); }
    JsonWriter& Value(currency amount);  ///< a string: plain decimal, up to four places
    JsonWriter& Value(bool truth) { return Raw(truth ? "true" : "false"); }
    JsonWriter& Value(double number);  ///< the shortest form that reads back; null when not finite
    template <std::integral Int>
    JsonWriter& Value(Int number) {
        return Raw(std::to_string(number));
    }
    template <class T>
    JsonWriter& Field(std::string_view name, const T& value) {
        return Key(name).Value(value);
    }

    const std::string& Text() const { return Out; }

  private:
    JsonWriter& Open(char bracket);
    JsonWriter& Close(char bracket);
    JsonWriter& Raw(std::string_view text);
    void Separate();

    std::string Out;
    std::vector<bool> HasItems;  // one for each open object or list
    bool AfterKey = false;
};

}  // namespace tarnwick::lab
