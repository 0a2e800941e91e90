#include "engine/values/field_values.h"

#include <cmath>
#include <cstdint>
#include <limits>

#include "engine/errors.h"
#include "platform/values/convert.h"
#include "platform/values/text.h"

namespace engine {
namespace {

using platform::FieldType;
using platform::Value;
using platform::ValueKind;

constexpr double kFirstDate = -657'434;       // 1 January 100
constexpr double kAfterLastDate = 2'958'466;  // 1 January 10000

Value ToByte(const Value& value) {
  const std::int32_t number = platform::CLng(value);
  if (number < 0 || number > std::numeric_limits<std::uint8_t>::max()) throw errors::DataConversion();
  return static_cast<std::uint8_t>(number);
}

Value ToDate(const Clock& clock, const Value& value) {
  const platform::Date date = platform::CDate(value, value.IsText() ? YearOf(clock) : 0);
  if (!(date.serial >= kFirstDate && date.serial < kAfterLastDate)) throw errors::DataConversion();
  return date;
}

Value ToText(const Value& value) { return value.IsText() ? value : Value(platform::CStr(value)); }

Value Convert(const Clock& clock, FieldType type, const Value& value) {
  switch (type) {
    case FieldType::Boolean:
      return platform::CBool(value);
    case FieldType::Byte:
      return ToByte(value);
    case FieldType::Short:
      return platform::CInt(value);
    case FieldType::Long:
    case FieldType::Counter:
      return platform::CLng(value);
    case FieldType::Currency:
      return platform::CCur(value);
    case FieldType::Double:
      return platform::CDbl(value);
    case FieldType::Date:
      return ToDate(clock, value);
    case FieldType::Text:
    case FieldType::Memo:
      return ToText(value);
  }
  return value;
}

bool HasTypeAlready(FieldType type, ValueKind kind) {
  switch (type) {
    case FieldType::Boolean:
      return kind == ValueKind::Boolean;
    case FieldType::Byte:
      return kind == ValueKind::Byte;
    case FieldType::Short:
      return kind == ValueKind::Short;
    case FieldType::Long:
    case FieldType::Counter:
      return kind == ValueKind::Long;
    case FieldType::Currency:
      return kind == ValueKind::Currency;
    case FieldType::Double:
      return kind == ValueKind::Double;
    case FieldType::Date:
      return false;  // its range is still to be tested
    case FieldType::Text:
    case FieldType::Memo:
      return kind == ValueKind::Text;
  }
  return false;
}

}  // namespace

Value ConvertForField(const Clock& clock, const platform::FieldDefinition& field, const Value& value) {
  // A variable that never held anything leaves nothing behind.
  if (value.IsNull() || value.IsEmpty()) return platform::Null;
  Value converted = value;
  if (!HasTypeAlready(field.type, value.Kind())) {
    try {
      converted = Convert(clock, field.type, value);
    } catch (const platform::Error&) {
      throw errors::DataConversion();
    }
  }
  // A number without end or none at all can't be read back as what it was.
  if (converted.Kind() == ValueKind::Double && !std::isfinite(converted.As<double>())) throw errors::DataConversion();
  if (converted.IsText()) {
    const std::string& text = converted.As<std::string>();
    if (!platform::IsValidUtf8(text) || text.find('\0') != std::string::npos) throw errors::DataConversion();
    // A text of no more bytes than the width has no more characters either.
    const auto width = static_cast<std::size_t>(field.size);
    if (field.type == FieldType::Text && text.size() > width && platform::CharacterCount(text) > width) throw errors::FieldTooSmall();
  }
  return converted;
}

}  // namespace engine
