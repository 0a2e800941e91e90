#pragma once

#include <optional>
#include <string>
#include <vector>

#include "printing/data/row_source.h"
#include "printing/layout/band_box.h"
#include "printing/layout/group_keys.h"
#include "printing/layout/totals.h"

namespace printing {

/// A column of an export.
struct DetailColumn {
  std::string heading;
  std::string format;  ///< as its element has it; numbers and dates leave as such, with the format beside them
  double width = 0;    ///< of its element, in inches
};

/// Takes a report's details as rows of typed cells.
class DetailSink {
 public:
  virtual ~DetailSink() = default;
  virtual void Begin(const std::vector<DetailColumn>& columns) = 0;
  virtual void Add(const std::vector<platform::Value>& cells) = 0;
};

/// Rows to cells: the elements with a column's heading, in the definition's order, evaluated at each detail that is printed. Texts come
/// out as they are printed. Everything that is handed in must outlive it.
class DetailRows {
 public:
  DetailRows(const ReportDefinition& report, ReportValues& values, RowSource& rows, DetailSink& sink);

  /// One row more; false when there is none.
  bool Advance();
  std::int64_t Records() const noexcept { return records_; }

 private:
  struct Cell {
    const Element* element = nullptr;
    int value = -1;
    int suppress = -1;
  };
  ReportValues& values_;
  RowSource& rows_;
  DetailSink& sink_;
  Totals totals_;
  GroupKeys keys_;
  std::vector<Cell> cells_;
  std::vector<int> suppressed_;  ///< conditions under which the detail bands are not printed
  std::vector<platform::Value> out_;
  std::int64_t records_ = 0;
  bool alwaysPrinted_ = false;
};

}  // namespace printing
