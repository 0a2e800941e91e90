#include "engine/values/packed_cells.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "unit/engine/support/engine_fixture.h"

namespace engine {
namespace {

using platform::Currency;
using platform::Date;
using platform::FieldType;
using platform::Null;
using platform::Value;

const std::vector<Value>& OfEachKind() {
  static const std::vector<Value> values{Null,
                                         true,
                                         false,
                                         std::uint8_t{255},
                                         std::int16_t{-32768},
                                         std::numeric_limits<std::int32_t>::max(),
                                         Currency{std::numeric_limits<std::int64_t>::min()},
                                         -0.5,
                                         Date{36191.5},
                                         "",
                                         "Smith",
                                         std::string(300, 'x')};
  return values;
}

PackedCells Packed(const std::vector<Value>& values) {
  PackedCells cells;
  for (const Value& value : values) cells.Add(value);
  return cells;
}

std::vector<Value> Unpacked(const PackedCells& cells) {
  std::vector<Value> values;
  for (std::size_t i = 0; i < cells.Size(); ++i) values.push_back(cells.At(i));
  return values;
}

TEST(PackedCells, ValuesComeBackAsTheyWere) { EXPECT_EQ(Unpacked(Packed(OfEachKind())), OfEachKind()); }

TEST(PackedCells, AFieldWithoutAValueIsNull) {
  PackedCells cells;
  cells.AddNull();
  cells.Add(Value());
  EXPECT_EQ(Unpacked(cells), (std::vector<Value>{Null, Null}));
}

TEST(PackedCells, DatesAreReadFromTheirTexts) {
  PackedCells cells;
  for (const char* text : {"1999-01-31", "1999-01-31 12:00:00", "1999-1-31", ""}) cells.AddIsoDate(text);
  EXPECT_EQ(Unpacked(cells), (std::vector<Value>{Date{36191}, Date{36191.5}, Null, Null}));
}

// The row that holds such a number is refused when it is read, not when somebody asks for the field.
TEST(PackedCells, NumbersBeyondTheirTypeAreRefused) {
  PackedCells cells;
  const auto add = [&](FieldType type, std::int64_t number) { return ErrorOf([&] { cells.AddWhole(type, number); }); };
  EXPECT_EQ(add(FieldType::Byte, 255), 0);
  EXPECT_EQ(add(FieldType::Byte, 256), 3349);
  EXPECT_EQ(add(FieldType::Byte, -1), 3349);
  EXPECT_EQ(add(FieldType::Short, 32768), 3349);
  EXPECT_EQ(add(FieldType::Long, std::int64_t{1} << 31), 3349);
  EXPECT_EQ(add(FieldType::Counter, -(std::int64_t{1} << 31)), 0);
  EXPECT_EQ(add(FieldType::Currency, std::numeric_limits<std::int64_t>::max()), 0);
  EXPECT_EQ(cells.Size(), 3U);
}

TEST(PackedCells, CellsOfOthersAndSwappedOnesKeepTheirTexts) {
  const PackedCells others = Packed({"a", "bb", 3, "dddd", Null, "f"});
  PackedCells cells = Packed({"before"});
  cells.Add(others, 1, 4);
  EXPECT_EQ(Unpacked(cells), (std::vector<Value>{"before", "bb", 3, "dddd", Null}));
  cells.Swap(1, 3, 2);
  EXPECT_EQ(Unpacked(cells), (std::vector<Value>{"before", "dddd", Null, "bb", 3}));
  cells.Clear();
  cells.Add("anew");
  EXPECT_EQ(Unpacked(cells), (std::vector<Value>{"anew"}));
}

TEST(PackedCells, AreTheSameWhenTheirValuesAre) {
  const PackedCells left = Packed(OfEachKind());
  for (std::size_t i = 0; i < left.Size(); ++i)
    for (std::size_t j = 0; j < left.Size(); ++j) EXPECT_EQ(left.Same(i, left, j), OfEachKind()[i] == OfEachKind()[j]) << i << ' ' << j;
  PackedCells dates;
  dates.AddIsoDate("1999-01-31");
  dates.AddIsoDate("none");
  dates.Add(Date{36191});
  dates.AddNull();
  EXPECT_TRUE(dates.Same(0, dates, 2));
  EXPECT_TRUE(dates.Same(1, dates, 3));
  EXPECT_FALSE(dates.Same(0, dates, 1));
}

}  // namespace
}  // namespace engine
