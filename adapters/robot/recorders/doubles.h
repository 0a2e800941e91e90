#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/controls/report_control.h"
#include "platform/services/accounts_lookup.h"
#include "platform/services/error_log.h"
#include "platform/services/map.h"
#include "platform/services/readable_reports.h"
#include "robot/recorders/journal.h"

namespace robot {

/// Keeps every error report for the journal, and writes none to a file.
class RecordingErrorLog final : public platform::ErrorLog {
 public:
  explicit RecordingErrorLog(Journal& journal) : journal_(journal) {}
  void Write(const platform::ErrorRecord& record) noexcept override { journal_.Logged(record); }

 private:
  Journal& journal_;
};

/// What the report control is told. It prints nothing, unless the scenario wants the real reports.
struct ReportRecorder {
  std::deque<int> answers;  ///< for the next runs; 0 when there is none
  /// How often each job was run, by the job's address, which is its control's.
  std::map<const platform::ReportJob*, int> runs;
  /// Once the scenario wants them, as long as the application is there; runs without an answer go to them.
  platform::ReadableReports* real = nullptr;
  /// Makes them; false where there are none.
  std::function<bool()> useReal;
};
using ReportsMaker = std::function<std::unique_ptr<platform::ReadableReports>()>;
std::unique_ptr<platform::ReportEngine> MakeRecordingReports(ReportRecorder& recorder, ReportsMaker makeReal);

/// Numbers of the map control's actions.
namespace map_action {
inline constexpr int Draw = 0;
inline constexpr int Geocode = 1;
inline constexpr int AddPin = 3;
inline constexpr int SetOrigin = 23;
inline constexpr int Measure = 24;
inline constexpr int Prepare = 25;
inline constexpr int RemovePins = 37;
}  // namespace map_action

/// What the map is told, and what it answers for the addresses that the scenario gave.
struct MapRecorder {
  struct Drawing {
    std::int32_t latitude = 0;
    std::int32_t longitude = 0;
    std::int32_t width = 0;
  };
  std::map<std::string, platform::GeocodeAnswer> answers;  ///< any other address: no line, no position, result 0
  std::vector<platform::MapPin> pins;                      ///< those that stand
  std::optional<Drawing> drawn;
  std::vector<int> actions;            ///< since the last user command
  std::vector<std::string> addresses;  ///< since the last user command
  platform::MapEngine* engine = nullptr;
};
std::unique_ptr<platform::MapEngine> MakeRecordingMap(MapRecorder& recorder);

/// The accounts look-up answers what the scenario queued.
struct AccountsRecorder {
  using List = std::function<platform::ChosenAccount(const platform::AccountsLookupInput&)>;
  /// Nothing: the program's own list is shown, and the user chooses.
  std::deque<std::optional<platform::ChosenAccount>> answers;
  List list;
  std::optional<platform::AccountsLookupInput> lastInput;
  /// Called when nothing is queued; the run ends.
  std::function<void(const std::string& was)> onMissingAnswer;
};
std::unique_ptr<platform::AccountsLookup> MakeScriptedAccounts(AccountsRecorder& recorder);

}  // namespace robot
