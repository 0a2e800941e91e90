#include "platform/values/format.h"

#include "platform/values/calendar.h"
#include "platform/values/convert.h"
#include "platform/values/format_date.h"
#include "platform/values/format_section.h"
#include "platform/values/text.h"

namespace platform {
namespace {


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

/// The date format that a name stands for.
constexpr NamedFormat kDateFormats[] = {
    {"Long Date", kLongDateFormat}, {"Medium Date", "dd-mmm-yy"}, {"Long Time", "h:nn:ss AM/PM"},
    {"Medium Time", "hh:nn AM/PM"}, {"Short Time", "hh:nn"},
};

/// What is shown for False and for True.
struct NamedAnswer {
  std::string_view name;
  std::string_view no;
  std::string_view yes;
};
constexpr NamedAnswer kAnswers[] = {{"True/False", "False", "True"}, {"Yes/No", "No", "Yes"}, {"On/Off", "Off", "On"}};

/// A value under a named date format: a text that is no date stays as it is.
template <class Shown>
std::string FormatDate(const Value& value, int thisYear, Shown&& shown) {
  const bool isDate = IsDate(value, thisYear);
  if (value.IsText() && !isDate && !IsNumeric(value)) return value.As<std::string>();
  return shown(value.IsText() && !isDate ? CDate(CDbl(value)) : CDate(value, thisYear));
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
  if (EqualsNoCase(format, "Short Date")) return FormatDate(value, thisYear, ShortDate);
  if (EqualsNoCase(format, "General Date")) return FormatDate(value, thisYear, GeneralDate);
  for (const auto& [name, dateFormat] : kDateFormats)
    if (EqualsNoCase(format, name)) {
      const std::string_view by = dateFormat;
      return FormatDate(value, thisYear, [by](Date date) { return FormatDateBy(date, by); });
    }
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
