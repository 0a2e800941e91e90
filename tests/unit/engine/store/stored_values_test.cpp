#include "engine/store/sqlite/declared_types.h"

#include <gtest/gtest.h>

#include <limits>

#include "engine/store/sqlite/dialect.h"
#include "engine/values/iso_date.h"

namespace engine {
namespace {

using platform::Currency;
using platform::Date;
using platform::FieldType;

TEST(StoredDates, AreIsoTexts) {
  EXPECT_EQ(IsoText(Date{0}), "1899-12-30");
  EXPECT_EQ(IsoText(Date{36191}), "1999-01-31");
  EXPECT_EQ(IsoText(Date{36191.5}), "1999-01-31 12:00:00");
  EXPECT_EQ(IsoText(Date{-657434}), "0100-01-01");
  EXPECT_EQ(IsoText(Date{2958465}), "9999-12-31");
}

// Before the epoch the fraction still counts forward from midnight.
TEST(StoredDates, TimeOfDaysBeforeTheEpoch) {
  EXPECT_EQ(IsoText(Date{-1.25}), "1899-12-29 06:00:00");
  EXPECT_EQ(DateOfIso("1899-12-29 06:00:00")->serial, -1.25);
}

TEST(StoredDates, RoundingToTheNextDay) { EXPECT_EQ(IsoText(Date{36191.999999}), "1999-02-01"); }

TEST(StoredDates, ComeBackAsTheyWere) {
  for (int day = -657434; day <= 2958465; day += 997) ASSERT_EQ(DateOfIso(IsoText(Date{static_cast<double>(day)}))->serial, day);
  EXPECT_DOUBLE_EQ(DateOfIso("2011-06-30 13:20:34")->serial, 40724 + (13 * 3600 + 20 * 60 + 34) / 86400.0);
}

TEST(StoredDates, OtherTextsAreNone) {
  for (const char* text : {"", "1999", "1999-1-31", "1999-13-01", "1999-01-32", "1999-01-31T10:00:00", "1999-01-31 25:00:00", "abcd-01-01"})
    EXPECT_FALSE(DateOfIso(text)) << text;
}

TEST(StoredLiterals, OfEachKind) {
  const auto literal = [](const platform::Value& value) { return SqliteDialect().Constant(value); };
  EXPECT_EQ(literal(platform::Null), "NULL");
  EXPECT_EQ(literal(true), "-1");
  EXPECT_EQ(literal(false), "0");
  EXPECT_EQ(literal(Currency{12345}), "12345");
  EXPECT_EQ(literal(2.5), "2.5");
  EXPECT_EQ(literal(2.0), "2.0");
  EXPECT_EQ(literal(-std::numeric_limits<double>::infinity()), "-9e999");
  EXPECT_EQ(literal(std::numeric_limits<double>::quiet_NaN()), "NULL");
  EXPECT_EQ(literal("O'Brien"), "'O''Brien'");
  EXPECT_EQ(literal(Date{36191}), "'1999-01-31'");
}

TEST(DeclaredTypes, ComeBackAsTheyWere) {
  for (const FieldType type : {FieldType::Boolean, FieldType::Byte, FieldType::Short, FieldType::Long, FieldType::Counter,
                               FieldType::Currency, FieldType::Double, FieldType::Date, FieldType::Memo}) {
    int size = -1;
    EXPECT_EQ(ParseDeclaredType(DeclaredType(type, 0), size), type);
    EXPECT_EQ(size, 0);
  }
  int size = 0;
  EXPECT_EQ(ParseDeclaredType("TEXT(30)", size), FieldType::Text);
  EXPECT_EQ(size, 30);
  EXPECT_FALSE(ParseDeclaredType("VARCHAR(30)", size));
  EXPECT_FALSE(ParseDeclaredType("", size));
  // As long as "TEXT(" and with a number behind it: another store's type all the same.
  EXPECT_FALSE(ParseDeclaredType("BLOB(20)", size));
  EXPECT_FALSE(ParseDeclaredType("TEXT(", size));
  EXPECT_FALSE(ParseDeclaredType("TEXT()", size));
  EXPECT_FALSE(ParseDeclaredType("TEXT(x)", size));
  EXPECT_FALSE(ParseDeclaredType("TEXT(20]", size));
  EXPECT_FALSE(ParseDeclaredType(std::string_view("TEXT(20)").substr(0, 7), size)) << "what stands behind the text is no part of it";
}

}  // namespace
}  // namespace engine
