#pragma once

#include <cstdint>
#include <vector>

#include "printing/definition/report_definition.h"
#include "printing/layout/report_values.h"

namespace printing {

/// A report's running totals and group sums.
class Totals {
 public:
  Totals(const ReportDefinition& report, ReportValues& values);

  /// The groups from `level` inwards begin: their totals are empty again.
  void Begin(int level);
  /// Takes the row at `place` in.
  void Add(const RunPlace& place);
  /// In the definition's order. A sum of nothing is 0, a count 0, the others are Null. Amounts add up exactly.
  const std::vector<platform::Value>& Now();

 private:
  struct Running {
    const ReportTotal* total = nullptr;
    int value = -1;
    int when = -1;
    std::int64_t count = 0;
    bool amounts = true;  ///< everything was an amount so far
    __extension__ typedef __int128 Wide;
    Wide exact = 0;  ///< ten-thousandths
    double sum = 0;
    double lost = 0;  ///< what the sum's rounding took
    platform::Value extreme = platform::Null;
  };
  void Take(Running& running, const platform::Value& value);
  static platform::Value Worth(const Running& running);

  ReportValues& values_;
  std::vector<Running> running_;
  std::vector<platform::Value> now_;
  bool stale_ = true;
};

}  // namespace printing
