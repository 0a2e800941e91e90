#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "engine/values/stored_form.h"
#include "platform/data/table_definition.h"
#include "platform/values/value.h"

namespace engine {

/// Cells of rows side by side, 16 bytes each, their texts in one string: a page holds some fifty fields of a row of which a walk asks
/// for a few, and only these become values. Cells lie as the store gave them, so a date is read when it is asked for.
class PackedCells {
 public:
  std::size_t Size() const noexcept { return cells_.size(); }
  void Reserve(std::size_t cells) { cells_.reserve(cells); }
  void Clear() noexcept {
    cells_.clear();
    texts_.clear();
  }

  void AddNull() { cells_.push_back({}); }
  /// A value of a field of that type that lies as a whole number. One beyond the type's range: 3349.
  void AddWhole(platform::FieldType type, std::int64_t number) {
    RequireWithin(type, number);
    cells_.push_back({number, 0, Form::Whole, type});
  }
  void AddReal(double number) { cells_.push_back({std::bit_cast<std::int64_t>(number), 0, Form::Real, platform::FieldType::Double}); }
  void AddText(std::string_view text) { AddBytes(text, Form::Text); }
  /// A date as it lies in a store; Null where it is none.
  void AddIsoDate(std::string_view text) { AddBytes(text, Form::IsoDate); }
  void Add(const platform::Value& value);
  /// Cells of others.
  void Add(const PackedCells& others, std::size_t first, std::size_t count);
  /// Puts neighbouring cells in the place of others.
  void Swap(std::size_t first, std::size_t second, std::size_t count);

  platform::Value At(std::size_t cell) const;
  /// Whether the values are the same.
  bool Same(std::size_t cell, const PackedCells& others, std::size_t other) const;

 private:
  enum class Form : std::uint8_t { Null, Whole, Real, Date, Text, IsoDate };
  struct Cell {
    std::int64_t number = 0;   ///< of a text, where it begins; of a real number or date, its bits
    std::uint32_t length = 0;  ///< of a text
    Form form = Form::Null;
    platform::FieldType type = platform::FieldType::Long;
  };
  void AddBytes(std::string_view text, Form form) {
    cells_.push_back({static_cast<std::int64_t>(texts_.size()), static_cast<std::uint32_t>(text.size()), form, platform::FieldType::Text});
    texts_.append(text);
  }
  std::string_view TextOf(const Cell& cell) const {
    return std::string_view(texts_).substr(static_cast<std::size_t>(cell.number), cell.length);
  }

  std::vector<Cell> cells_;
  std::string texts_;
};

}  // namespace engine
