#pragma once

#include <vector>

#include "printing/definition/report_definition.h"
#include "printing/layout/report_values.h"

namespace printing {

/// Tells where groups end.
class GroupKeys {
 public:
  GroupKeys(const ReportDefinition& report, ReportValues& values);

  /// The outermost group (from 1) that the row at `place` begins anew; one more than there are groups where it goes on in all.
  int FirstChanged(const RunPlace& place);

 private:
  struct Key {
    GroupBy by = GroupBy::Value;
    int value = -1;
    platform::Value last;
  };
  ReportValues& values_;
  std::vector<Key> keys_;
  bool began_ = false;
};

}  // namespace printing
