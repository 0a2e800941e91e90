#include "printing/layout/totals.h"

#include <cmath>
#include <limits>

#include "platform/values/convert.h"
#include "platform/values/error.h"

namespace printing {

using platform::Value;
using platform::ValueKind;

namespace {

constexpr double kTenThousand = 10000;

/// A text counts as the number that it is, and otherwise as nothing: a bad cell must not end a report.
std::optional<double> NumberOf(const Value& value) {
  if (value.Kind() == ValueKind::Date) return value.As<platform::Date>().serial;
  if (value.IsText()) return platform::ParseNumber(value.As<std::string>());
  if (!value.IsNumber()) return {};
  return platform::CDbl(value);
}

template <class Wide>
Value AmountOr(Wide tenThousandths) {
  if (tenThousandths < std::numeric_limits<std::int64_t>::min() || tenThousandths > std::numeric_limits<std::int64_t>::max())
    return static_cast<double>(tenThousandths) / kTenThousand;
  return platform::Currency{static_cast<std::int64_t>(tenThousandths)};
}

}  // namespace

Totals::Totals(const ReportDefinition& report, ReportValues& values) : values_(values) {
  for (const ReportTotal& total : report.totals) {
    Running running;
    running.total = &total;
    running.value = values.Bind(total.value);
    if (total.when) running.when = values.Bind(*total.when);
    running_.push_back(running);
  }
}

void Totals::Begin(int level) {
  for (Running& running : running_) {
    if (running.total->group < level) continue;
    Running fresh;
    fresh.total = running.total;
    fresh.value = running.value;
    fresh.when = running.when;
    running = fresh;
    stale_ = true;
  }
}

void Totals::Add(const RunPlace& place) {
  if (running_.empty()) return;
  stale_ = true;
  Value room;
  for (Running& running : running_)
    if (running.when < 0 || values_.IsTrue(running.when, place)) Take(running, values_.Look(running.value, place, room));
}

void Totals::Take(Running& running, const Value& value) {
  if (value.IsNull() || value.IsEmpty()) return;
  if (running.total->summary == Summary::Count) {
    ++running.count;
    return;
  }
  if (running.total->summary == Summary::Least || running.total->summary == Summary::Greatest) {
    if (!running.extreme.IsNull()) {
      const int order = values_.Compare(value, running.extreme);
      if (running.total->summary == Summary::Least ? order >= 0 : order <= 0) return;
    }
    running.extreme = value;
    return;
  }
  const std::optional<double> number = NumberOf(value);
  if (!number) return;
  ++running.count;
  if (value.Kind() == ValueKind::Currency) {
    running.exact += value.As<platform::Currency>().tenThousandths;
  } else {
    running.amounts = false;
  }
  const double sum = running.sum + *number;
  running.lost += std::abs(running.sum) >= std::abs(*number) ? (running.sum - sum) + *number : (*number - sum) + running.sum;
  running.sum = sum;
}

Value Totals::Worth(const Running& running) {
  const bool amount = running.amounts && running.count > 0;
  switch (running.total->summary) {
    case Summary::Count:
      return static_cast<double>(running.count);
    case Summary::Sum:
      if (amount) return AmountOr(running.exact);
      return running.sum + running.lost;
    case Summary::Average:
      if (running.count == 0) return platform::Null;
      if (amount) return AmountOr(static_cast<Running::Wide>(std::llrint(static_cast<long double>(running.exact) / running.count)));
      return (running.sum + running.lost) / static_cast<double>(running.count);
    case Summary::Least:
    case Summary::Greatest:
      return running.extreme;
  }
  return platform::Null;
}

const std::vector<Value>& Totals::Now() {
  if (!stale_) return now_;
  now_.clear();
  for (const Running& running : running_) now_.push_back(Worth(running));
  stale_ = false;
  return now_;
}

}  // namespace printing
