#include "engine/values/packed_cells.h"

#include <algorithm>

#include "engine/values/iso_date.h"

namespace engine {

using platform::FieldType;
using platform::Value;
using platform::ValueKind;

void PackedCells::Add(const Value& value) {
  switch (value.Kind()) {
    case ValueKind::Empty:
    case ValueKind::Null:
      return AddNull();
    case ValueKind::Boolean:
      return AddWhole(FieldType::Boolean, value.As<bool>() ? -1 : 0);
    case ValueKind::Byte:
      return AddWhole(FieldType::Byte, value.As<std::uint8_t>());
    case ValueKind::Short:
      return AddWhole(FieldType::Short, value.As<std::int16_t>());
    case ValueKind::Long:
      return AddWhole(FieldType::Long, value.As<std::int32_t>());
    case ValueKind::Currency:
      return AddWhole(FieldType::Currency, value.As<platform::Currency>().tenThousandths);
    case ValueKind::Double:
      return AddReal(value.As<double>());
    case ValueKind::Date:
      cells_.push_back({std::bit_cast<std::int64_t>(value.As<platform::Date>().serial), 0, Form::Date, FieldType::Date});
      return;
    case ValueKind::Text:
      return AddText(value.As<std::string>());
  }
}

void PackedCells::Add(const PackedCells& others, std::size_t first, std::size_t count) {
  for (std::size_t i = first; i < first + count; ++i) {
    const Cell& cell = others.cells_[i];
    if (cell.form == Form::Text || cell.form == Form::IsoDate)
      AddBytes(others.TextOf(cell), cell.form);
    else
      cells_.push_back(cell);
  }
}

void PackedCells::Swap(std::size_t first, std::size_t second, std::size_t count) {
  const auto at = [this](std::size_t cell) { return cells_.begin() + static_cast<std::ptrdiff_t>(cell); };
  std::swap_ranges(at(first), at(first + count), at(second));
}

Value PackedCells::At(std::size_t place) const {
  const Cell& cell = cells_[place];
  switch (cell.form) {
    case Form::Null:
      break;
    case Form::Whole:
      return ValueOfWhole(cell.type, cell.number);
    case Form::Real:
      return std::bit_cast<double>(cell.number);
    case Form::Date:
      return platform::Date{std::bit_cast<double>(cell.number)};
    case Form::Text:
      return TextOf(cell);
    case Form::IsoDate:
      if (const auto date = DateOfIso(TextOf(cell))) return *date;
      break;
  }
  return platform::Null;
}

bool PackedCells::Same(std::size_t cell, const PackedCells& others, std::size_t other) const {
  const Cell& left = cells_[cell];
  const Cell& right = others.cells_[other];
  if (left.form == Form::Text && right.form == Form::Text) return TextOf(left) == others.TextOf(right);
  return At(cell) == others.At(other);
}

}  // namespace engine
