#include "printing/layout/detail_rows.h"

#include <algorithm>

#include "platform/values/format.h"

namespace printing {

using platform::Value;

DetailRows::DetailRows(const ReportDefinition& report, ReportValues& values, RowSource& rows, DetailSink& sink)
    : values_(values), rows_(rows), sink_(sink), totals_(report, values), keys_(report, values) {
  std::vector<DetailColumn> columns;
  alwaysPrinted_ = true;
  for (const Band& band : report.bands) {
    if (band.kind == BandKind::Detail) {
      if (suppressed_.empty() && alwaysPrinted_) alwaysPrinted_ = false;
      suppressed_.push_back(band.suppress ? values.Bind(*band.suppress) : -1);
    }
    for (const Element& element : band.elements) {
      if (element.column.empty()) continue;
      columns.push_back({element.column, element.format, element.width});
      cells_.push_back({&element, values.Bind(element.value), element.suppress ? values.Bind(*element.suppress) : -1});
    }
  }
  sink.Begin(columns);
}

bool DetailRows::Advance() {
  if (!rows_.Next()) return false;
  const std::vector<Value>& row = rows_.Row();
  ++records_;
  const int changed = keys_.FirstChanged({&row, &totals_.Now(), records_, 1});
  totals_.Begin(records_ == 1 ? 0 : changed);
  totals_.Add({&row, nullptr, records_, 1});
  const RunPlace place{&row, &totals_.Now(), records_, 1};
  const auto printed = [&](int condition) { return !Holds(values_, condition, place); };
  if (!alwaysPrinted_ && std::none_of(suppressed_.begin(), suppressed_.end(), printed)) return true;
  out_.clear();
  for (const Cell& cell : cells_) {
    Value value;
    if (!Holds(values_, cell.suppress, place))
      if (const Value& seen = values_.Look(cell.value, place, value); &seen != &value) value = seen;
    if (value.IsText() && !cell.element->format.empty()) value = platform::Format(value, cell.element->format);
    out_.push_back(std::move(value));
  }
  sink_.Add(out_);
  return true;
}

}  // namespace printing
