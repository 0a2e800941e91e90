#include "printing/lists/list_rows.h"

#include <utility>

#include "platform/values/convert.h"
#include "platform/values/format.h"

namespace printing {

namespace {

constexpr std::size_t kRowsAhead = 200;

using platform::Value;

bool IsFigure(const Value& value) { return value.IsNumber() && value.Kind() != platform::ValueKind::Boolean; }

}  // namespace

ListRows::ListRows(const platform::ExportedList& list, platform::ExportRows& rows)
    : list_(list), rows_(rows), figures_(list.columns.size()) {
  for (std::size_t i = 0; i < list.columns.size(); ++i) fields_.push_back({0, "C" + std::to_string(i), ValueType::Text});
  LookAhead();
}

void ListRows::LookAhead() {
  std::vector<bool> known(figures_.size());
  std::vector<Value> cells;
  while (ahead_.size() < kRowsAhead && !ended_) {
    const auto step = rows_.Next(cells);
    ended_ = step != platform::ExportRows::Step::Row;
    stopped_ = step == platform::ExportRows::Step::Stopped;
    if (ended_) return;
    for (std::size_t i = 0; i < cells.size() && i < known.size(); ++i) {
      if (known[i] || cells[i].IsNull()) continue;
      known[i] = true;
      figures_[i] = IsFigure(cells[i]);
    }
    ahead_.push_back(Shown(cells));
  }
}

std::vector<Value> ListRows::Shown(const std::vector<Value>& cells) const {
  std::vector<Value> shown;
  for (std::size_t i = 0; i < list_.columns.size(); ++i) {
    const platform::ExportColumn& column = list_.columns[i];
    if (i >= cells.size() || cells[i].IsNull() || cells[i].IsEmpty()) {
      shown.emplace_back("");
      continue;
    }
    std::string text = column.format.empty() ? platform::CStr(cells[i]) : platform::Format(cells[i], column.format);
    shown.emplace_back(column.percent && IsFigure(cells[i]) ? text + "%" : text);
  }
  return shown;
}

bool ListRows::Next() {
  if (taken_ < ahead_.size()) {
    row_ = std::move(ahead_[taken_++]);
    return true;
  }
  std::vector<Value> cells;
  if (ended_) return false;
  const auto step = rows_.Next(cells);
  ended_ = step != platform::ExportRows::Step::Row;
  stopped_ = step == platform::ExportRows::Step::Stopped;
  if (ended_) return false;
  row_ = Shown(cells);
  return true;
}

}  // namespace printing
