#include "platform/values/format.h"

#include "platform/values/calendar.h"
#include "platform/values/convert.h"
#include "platform/values/format_date.h"
#include "platform/values/format_section.h"
#include "platform/values/text.h"

namespace platform {
namespace {

enum class DatePart { Short, General };

/// The number format that a name stands for.
struct NamedFormat {
  std::string_view name;
  std::string_view format;
};
constexpr NamedFormat kNumberFormats[] = {
    {"Currency", "$#,##0.00;($#,##0.00)"},
    {"Fixed", "0.00"},
    {"Standard", "#,##0.00"},
    {"Percent", "0.00%"},
};

/// What is shown for False and for True.
struct NamedAnswer {
  std::string_view name;
  std::string_view no;
  std::string_view yes;
};
constexpr NamedAnswer kAnswers[] = {{"True/False", "False", "True"}, {"Yes/No", "No", "Yes"}, {"On/Off", "Off", "On"}};

std::string FormatDate(const Value& value, DatePart part, int thisYear) {
  const bool isDate = IsDate(value, thisYear);
  if (value.IsText() && !isDate && !IsNumeric(value)) return value.As<std::string>();
  const Date date = value.IsText() && !isDate ? CDate(CDbl(value)) : CDate(value, thisYear);
  return part == DatePart::Short ? ShortDate(date) : GeneralDate(date);
}

std::string FormatBySections(const Value& value, std::string_view format) {
  const auto sections = SectionsOf(format);
  if (IsTextSection(sections[0])) return FormatText(CStr(value), sections[0]);
  const auto number = DecimalOf(value);
  return number ? FormatNumber(*number, sections) : CStr(value);
}

/// What stands for Null and "": nothing, or a text format's second section.
std::string FormatNothing(std::string_view format) {
  const auto sections = SectionsOf(format);
  return IsTextSection(sections[0]) && sections.size() > 1 ? FormatText("", sections[1]) : "";
}

}  // namespace

std::string Format(const Value& value, std::string_view format, int thisYear) {
  const bool nothing = value.IsNull() || value.IsEmpty() || (value.IsText() && value.As<std::string>().empty());
  if (nothing) return FormatNothing(format);
  if (format.empty() || EqualsNoCase(format, "General Number")) return CStr(value);
  if (EqualsNoCase(format, "Short Date")) return FormatDate(value, DatePart::Short, thisYear);
  if (EqualsNoCase(format, "General Date")) return FormatDate(value, DatePart::General, thisYear);
  for (const auto& [name, no, yes] : kAnswers)
    if (EqualsNoCase(format, name)) {
      const auto number = DecimalOf(value);
      return number ? std::string(number->digits.empty() ? no : yes) : CStr(value);
    }
  for (const auto& [name, numberFormat] : kNumberFormats)
    if (EqualsNoCase(format, name)) return FormatBySections(value, numberFormat);
  if (value.Kind() == ValueKind::Date && IsDateFormat(format)) return FormatDateBy(value.As<Date>(), format);
  return FormatBySections(value, format);
}

}  // namespace platform
