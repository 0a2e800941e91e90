#include "printing/layout/group_keys.h"

#include "platform/values/calendar.h"
#include "platform/values/convert.h"
#include "platform/values/text.h"

namespace printing {

using platform::Value;
using platform::ValueKind;

namespace {

constexpr int kMonths = 12;

/// The part of a value by which it belongs to its group.
Value KeyOf(const Value& value, GroupBy by) {
  if (by == GroupBy::Letter && value.IsText()) {
    const auto& text = value.As<std::string>();
    std::size_t end = 0;
    if (!text.empty()) platform::NextCodePoint(text, end);
    return platform::UCase(std::string_view(text).substr(0, end));
  }
  if ((by == GroupBy::Month || by == GroupBy::Year) && value.Kind() == ValueKind::Date) {
    const platform::CalendarDay day = platform::CalendarOf(value.As<platform::Date>());
    return by == GroupBy::Year ? day.year : day.year * kMonths + day.month;
  }
  return value;
}

/// Null and a text of blanks: both say that there is none.
bool IsNothing(const Value& value) {
  return value.IsNull() || (value.IsText() && value.As<std::string>().find_first_not_of(' ') == std::string::npos);
}

}  // namespace

GroupKeys::GroupKeys(const ReportDefinition& report, ReportValues& values) : values_(values) {
  for (const ReportGroup& group : report.groups) keys_.push_back({group.by, values.Bind(group.key.field), {}});
}

int GroupKeys::FirstChanged(const RunPlace& place) {
  int changed = static_cast<int>(keys_.size()) + 1;
  for (int level = static_cast<int>(keys_.size()); level >= 1; --level) {
    Key& key = keys_[static_cast<std::size_t>(level) - 1];
    Value room;
    const Value& value = values_.Look(key.value, place, room);
    if (key.by == GroupBy::Value && began_ && value == key.last) continue;
    Value now = KeyOf(value, key.by);
    const bool nothing = IsNothing(now);
    const bool same = began_ && nothing == IsNothing(key.last) && (nothing || values_.Compare(now, key.last) == 0);
    if (!same) changed = level;
    key.last = std::move(now);
  }
  const int first = began_ ? changed : 1;
  began_ = true;
  return first;
}

}  // namespace printing
