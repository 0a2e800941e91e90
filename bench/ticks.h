#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "maintenance/frmCustMain.h"
#include "platform/values/convert.h"
#include "raw/records.h"

// The lists whose rows are ticked for a customer, as both sides deliver them.
namespace bench {

inline int TabOf(raw::Ticked list) { return list == raw::Ticked::Types ? orcussch::tab::CustomerTypes : orcussch::tab::KeyWords; }

inline std::uint64_t Mixed(std::uint64_t sum, bool ticked, std::string_view text) {
  return (sum * 31 + (ticked ? 1 : 0)) * 31 + std::hash<std::string_view>{}(text);
}

/// Of rows of a work table; their columns: instance, tick, ..., text.
inline std::uint64_t PageSum(const std::vector<platform::ListRow>& rows) {
  std::uint64_t sum = 0;
  for (const auto& row : rows) sum = Mixed(sum, row.cells.at(1).As<bool>(), row.cells.back().As<std::string>());
  return sum;
}

inline std::uint64_t PageSum(const raw::Rows& rows) {
  std::uint64_t sum = 0;
  for (std::size_t i = 0; i < rows.Count(); ++i)
    sum = Mixed(sum, std::get<std::int64_t>(rows.Row(i)[1]) != 0, std::get<std::string>(rows.Row(i)[rows.columns - 1]));
  return sum;
}

}  // namespace bench
