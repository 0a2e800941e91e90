#include "reports/label_reports.h"

#include <algorithm>
#include <iterator>

#include "platform/values/convert.h"

namespace orcussch {

namespace {

struct LabelReport {
  const char* File;
  bool Sorted;
  int OnSheet;
};

constexpr LabelReport kReports[] = {{"ARML5161.RPT", true, 20}, {"ARML5260.RPT", true, 30}, {"ARFL5166.RPT", false, 30}};

const LabelReport* Find(const std::string& File) {
  const std::string Name = platform::UCase(File);
  const auto* Found = std::find_if(std::begin(kReports), std::end(kReports), [&](const LabelReport& One) { return Name == One.File; });
  return Found == std::end(kReports) ? nullptr : Found;
}

}  // namespace

bool IsLabelReport(const std::string& File) { return Find(File) != nullptr; }

bool IsMailingLabels(const std::string& File) {
  const LabelReport* Report = Find(File);
  return Report && Report->Sorted;
}

int FirstLabelOf(const std::string& File, double Wanted) {
  const LabelReport* Report = Find(File);
  return Report ? static_cast<int>(std::clamp(Wanted, 1.0, static_cast<double>(Report->OnSheet))) : 1;
}

}  // namespace orcussch
