#include "files/gamecodec.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <utility>

#include "files/codepage.h"
#include "files/record.h"
#include "table/format.h"

namespace tarnwick {

std::string FieldName::Text() const {
    std::string text = Base;
    for (std::size_t i = 0; i < Count; ++i) text += (i == 0 ? "[" : ",") + std::to_string(Index[i]);
    return Count == 0 ? text : text + "]";
}

// --- writing ---

bool GameWriter::Begin(int records) {
    Start = Bytes.size();
    Bytes.append(static_cast<std::size_t>(records) * RecordLength, '\0');
    return true;
}

void GameWriter::Put(std::size_t at, std::size_t size, std::uint64_t value) {
    for (std::size_t i = 0; i < size; ++i) Bytes[Start + at + i] = static_cast<char>(value >> 8 * i & 0xFF);
}

void GameWriter::Long(std::size_t at, FieldName, std::int32_t& value) { Put(at, 4, static_cast<std::uint32_t>(value)); }
void GameWriter::Int(std::size_t at, FieldName, std::int16_t& value) { Put(at, 2, static_cast<std::uint16_t>(value)); }

void GameWriter::Single(std::size_t at, FieldName, std::int32_t& value) {
    const auto single = static_cast<float>(value);
    std::uint32_t bits = 0;
    std::memcpy(&bits, &single, sizeof bits);
    Put(at, 4, bits);
}

void GameWriter::Money(std::size_t at, FieldName, currency& value) {
    Put(at, 8, static_cast<std::uint64_t>(value.TenThousandths));
}

void GameWriter::Text(std::size_t at, std::size_t length, FieldName, std::string& value) {
    const std::string bytes = ToCodePage(value).Bytes;
    for (std::size_t i = 0; i < length; ++i) Bytes[Start + at + i] = i < bytes.size() ? bytes[i] : ' ';
}

void GameWriter::Flag(std::size_t at, FieldName, bool& value) { Put(at, 4, value ? 0xFFFFFFFF : 0); }

void GameWriter::Whole(std::size_t at, FieldName, std::int32_t& value) {
    Put(at, 8, static_cast<std::uint64_t>(value * CurrencyScale));
}

void GameWriter::WholeFlag(std::size_t at, FieldName, bool& value) {
    Put(at, 8, static_cast<std::uint64_t>(value ? -CurrencyScale : 0));
}

// --- reading ---

bool GameReader::Begin(int records) {
    const std::size_t length = static_cast<std::size_t>(records) * RecordLength;
    Cut = Cut || Rest.size() < length;
    if (Cut) return false;
    Now = Rest.substr(0, length);
    Rest.remove_prefix(length);
    return true;
}

std::uint64_t GameReader::Get(std::size_t at, std::size_t size) const {
    std::uint64_t value = 0;
    for (std::size_t i = size; i-- > 0;) value = value << 8 | static_cast<std::uint8_t>(Now[at + i]);
    return value;
}

void GameReader::Long(std::size_t at, FieldName, std::int32_t& value) {
    value = static_cast<std::int32_t>(static_cast<std::uint32_t>(Get(at, 4)));
}
void GameReader::Int(std::size_t at, FieldName, std::int16_t& value) {
    value = static_cast<std::int16_t>(static_cast<std::uint16_t>(Get(at, 2)));
}

void GameReader::Single(std::size_t at, FieldName, std::int32_t& value) {
    const auto bits = static_cast<std::uint32_t>(Get(at, 4));
    float single = 0;
    std::memcpy(&single, &bits, sizeof single);
    if (std::isnan(single)) return;  // the default stays
    constexpr float mostExact = 16'777'216;
    value = static_cast<std::int32_t>(std::nearbyint(std::clamp(single, -mostExact, mostExact)));
}

void GameReader::Money(std::size_t at, FieldName, currency& value) {
    value.TenThousandths = static_cast<std::int64_t>(Get(at, 8));
}

void GameReader::Text(std::size_t at, std::size_t length, FieldName, std::string& value) {
    value = FieldText(Now.substr(at, length));
}

void GameReader::Flag(std::size_t at, FieldName, bool& value) { value = Get(at, 4) != 0; }

void GameReader::Whole(std::size_t at, FieldName, std::int32_t& value) {
    const std::int64_t whole = HalfEvenDivide(static_cast<std::int64_t>(Get(at, 8)), CurrencyScale);
    constexpr std::int64_t lowest = std::numeric_limits<std::int32_t>::min();
    constexpr std::int64_t highest = std::numeric_limits<std::int32_t>::max();
    value = static_cast<std::int32_t>(std::clamp(whole, lowest, highest));
}

void GameReader::WholeFlag(std::size_t at, FieldName, bool& value) { value = Get(at, 8) != 0; }

std::int32_t GameReader::NextPosition() const {
    GameReader next(Rest);
    std::int32_t position = 0;
    if (!next.Begin(1)) return 0;
    next.Whole(0, "Position", position);
    return position;
}

// --- listing ---

bool GameLister::Begin(int records) {
    First = Next;
    Next += records;
    return true;
}

void GameLister::Give(std::size_t at, const FieldName& name, std::string value, bool isZero, bool isText) {
    const int record = First + static_cast<int>(at / RecordLength);
    Take({record, at % RecordLength, name.Text(), std::move(value), isText, isZero});
}

void GameLister::Long(std::size_t at, FieldName name, std::int32_t& value) {
    Give(at, name, std::to_string(value), value == 0);
}
void GameLister::Int(std::size_t at, FieldName name, std::int16_t& value) {
    Give(at, name, std::to_string(value), value == 0);
}
void GameLister::Single(std::size_t at, FieldName name, std::int32_t& value) { Long(at, name, value); }
void GameLister::Money(std::size_t at, FieldName name, currency& value) {
    Give(at, name, PlainAmount(value), IsZero(value));
}
void GameLister::Text(std::size_t at, std::size_t, FieldName name, std::string& value) {
    Give(at, name, value, value.empty(), true);
}
void GameLister::Flag(std::size_t at, FieldName name, bool& value) { Give(at, name, value ? "true" : "false", !value); }
void GameLister::Whole(std::size_t at, FieldName name, std::int32_t& value) { Long(at, name, value); }
void GameLister::WholeFlag(std::size_t at, FieldName name, bool& value) { Flag(at, name, value); }

}  // namespace tarnwick
