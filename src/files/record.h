// Records of 256 bytes: little-endian numbers, money as its 64-bit count, texts of one byte a character padded with
// blanks. Places are bytes from 0 and must lie inside the record.
#pragma once

#include <algorithm>
#include <array>
#include <cassert>
#include <cstdint>
#include <string>
#include <string_view>

#include "table/currency.h"

namespace tarnwick {

constexpr std::size_t RecordLength = 256;

class Record {
  public:
    /// All bytes 0.
    Record() = default;
    /// The first 256 of `bytes`; what is missing is 0.
    explicit Record(std::string_view bytes) {
        std::copy_n(bytes.begin(), std::min(bytes.size(), RecordLength), Bytes.begin());
    }
    std::string_view AllBytes() const { return {Bytes.data(), Bytes.size()}; }

    std::int16_t Int16(std::size_t at) const { return static_cast<std::int16_t>(Get(at, 2)); }
    std::int32_t Int32(std::size_t at) const { return static_cast<std::int32_t>(Get(at, 4)); }
    currency Money(std::size_t at) const { return currency{static_cast<std::int64_t>(Get(at, 8))}; }
    /// The bytes of a text field as they stand.
    std::string_view Text(std::size_t at, std::size_t length) const {
        assert(at + length <= RecordLength);
        return {Bytes.data() + at, length};
    }

    void PutInt16(std::size_t at, std::int16_t value) { Put(at, 2, static_cast<std::uint64_t>(value)); }
    void PutInt32(std::size_t at, std::int32_t value) { Put(at, 4, static_cast<std::uint64_t>(value)); }
    void PutMoney(std::size_t at, currency value) { Put(at, 8, static_cast<std::uint64_t>(value.TenThousandths)); }
    /// Cut to the field's length.
    void PutText(std::size_t at, std::size_t length, std::string_view text) {
        assert(at + length <= RecordLength);
        const auto field = Bytes.begin() + static_cast<std::ptrdiff_t>(at);
        std::fill_n(field, length, ' ');
        std::copy_n(text.begin(), std::min(length, text.size()), field);
    }

  private:
    std::uint64_t Get(std::size_t at, std::size_t size) const {
        assert(at + size <= RecordLength);
        std::uint64_t value = 0;
        for (std::size_t i = size; i-- > 0;) value = value << 8 | static_cast<std::uint8_t>(Bytes[at + i]);
        return value;
    }
    void Put(std::size_t at, std::size_t size, std::uint64_t value) {
        assert(at + size <= RecordLength);
        for (std::size_t i = 0; i < size; ++i) Bytes[at + i] = static_cast<char>(value >> 8 * i & 0xFF);
    }

    std::array<char, RecordLength> Bytes{};
};

}  // namespace tarnwick
