// A game file's fields into bytes, out of bytes, and as texts.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "files/gamefields.h"

namespace tarnwick {

class GameWriter final : public GameFields {
  public:
    std::string Bytes;

    bool Begin(int records) override;
    void Long(std::size_t at, FieldName name, std::int32_t& value) override;
    void Int(std::size_t at, FieldName name, std::int16_t& value) override;
    void Single(std::size_t at, FieldName name, std::int32_t& value) override;
    void Money(std::size_t at, FieldName name, currency& value) override;
    void Text(std::size_t at, std::size_t length, FieldName name, std::string& value) override;
    void Flag(std::size_t at, FieldName name, bool& value) override;
    void Whole(std::size_t at, FieldName name, std::int32_t& value) override;
    void WholeFlag(std::size_t at, FieldName name, bool& value) override;

  private:
    void Put(std::size_t at, std::size_t size, std::uint64_t value);
    std::size_t Start = 0;
};

/// Gives whatever the bytes say; nothing is checked but their number.
class GameReader final : public GameFields {
  public:
    explicit GameReader(std::string_view bytes) : Rest(bytes) {}

    bool Cut = false;  ///< the bytes ended before the records did

    bool Begin(int records) override;
    void Long(std::size_t at, FieldName name, std::int32_t& value) override;
    void Int(std::size_t at, FieldName name, std::int16_t& value) override;
    void Single(std::size_t at, FieldName name, std::int32_t& value) override;
    void Money(std::size_t at, FieldName name, currency& value) override;
    void Text(std::size_t at, std::size_t length, FieldName name, std::string& value) override;
    void Flag(std::size_t at, FieldName name, bool& value) override;
    void Whole(std::size_t at, FieldName name, std::int32_t& value) override;
    void WholeFlag(std::size_t at, FieldName name, bool& value) override;

    /// The position that the next record would give to a player block; 0 when there is none.
    std::int32_t NextPosition() const;

  private:
    std::uint64_t Get(std::size_t at, std::size_t size) const;
    std::string_view Rest;
    std::string_view Now;
};

/// One field as a person reads it.
struct GameField {
    int Record = 0;        ///< of the file, from 1
    std::size_t Byte = 0;  ///< in the record, from 0
    std::string Name;
    std::string Value;
    bool IsText = false;
    bool IsZero = false;  ///< 0, false or an empty text
};

/// Calls `Take` with every field; changes nothing.
class GameLister final : public GameFields {
  public:
    std::function<void(const GameField&)> Take;

    bool Begin(int records) override;
    void Long(std::size_t at, FieldName name, std::int32_t& value) override;
    void Int(std::size_t at, FieldName name, std::int16_t& value) override;
    void Single(std::size_t at, FieldName name, std::int32_t& value) override;
    void Money(std::size_t at, FieldName name, currency& value) override;
    void Text(std::size_t at, std::size_t length, FieldName name, std::string& value) override;
    void Flag(std::size_t at, FieldName name, bool& value) override;
    void Whole(std::size_t at, FieldName name, std::int32_t& value) override;
    void WholeFlag(std::size_t at, FieldName name, bool& value) override;

  private:
    void Give(std::size_t at, const FieldName& name, std::string value, bool isZero, bool isText = false);
    int First = 1, Next = 1;
};

}  // namespace tarnwick
