#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "maintenance/frmCustMain.h"
#include "platform/data/data.h"
#include "platform/host/no_windows.h"
#include "platform/services/error_log.h"
#include "platform/services/map.h"

namespace bench {

/// How long a user waits between the moments at which the program serves him, while it is watched.
class YieldWatch {
 public:
  void Begin();
  /// The last wait ends here, too.
  void End();
  void Yield();
  /// How often he was served.
  int Count() const noexcept { return static_cast<int>(gaps_.size()) - 1; }
  /// Milliseconds by the clock, and by this process's processor time.
  double WorstGap() const;
  double WorstWork() const;
  /// The gap that one in a thousand exceeds, by the clock.
  double RareGap() const;

 private:
  struct Gap {
    double wall = 0, cpu = 0;
  };
  std::vector<Gap> gaps_;
  Gap last_;
  bool on_ = false;
};

/// A front end without windows, whose user is the bench. A box that the program shows ends the run.
class WatchedFrontEnd final : public platform::NoWindows {
 public:
  explicit WatchedFrontEnd(std::function<void(platform::Form&)> user) : user_(std::move(user)) {}

  void RunModal(platform::Form& form, const std::function<bool()>& done) override;
  void DoEvents() override;
  /// Counted where all painting counts and not the user's own events alone.
  void ServePainting() override;
  int MessageBox(const std::string& text, int style, const std::string& title) override;

  YieldWatch watch;
  /// Yields and the moments at which painting alone is served.
  YieldWatch painting;

 private:
  std::function<void(platform::Form&)> user_;
};

/// A user's temporary file of the company in a folder; made when it is missing.
std::string TemporaryFileIn(const std::string& folder, int user = 1);

/// Who comes to the main screen, and by what.
struct Visit {
  std::string folder;
  int user = 1;
  std::unique_ptr<platform::FrontEnd> frontEnd;
  std::unique_ptr<platform::ErrorLog> errorLog;
  std::unique_ptr<platform::MapEngine> map;      ///< the street map behind the map screen
  std::unique_ptr<platform::DataEngine> engine;  ///< none: the program's own
};
/// Opens company 1 of the folder as a host does and shows the main screen; returns when it has closed.
void ShowMainScreen(Visit visit);

/// What is done with the main screen.
using MainScreenWork = std::function<void(orcussch::frmCustMain&, WatchedFrontEnd&)>;
/// Opens company 1 of the folder as a host does and shows the main screen for this work. Throws std::runtime_error when the program shows a
/// box or reports a failure. The visit's front end and log are made here.
void AtMainScreen(Visit visit, const MainScreenWork& work);
void AtMainScreen(const std::string& folder, const MainScreenWork& work);

/// The first tab's list on that customer.
void StandOnCustomer(orcussch::frmCustMain& screen, std::int64_t account);
/// The customer's card, with another second address line.
void EditOnTheCard(orcussch::frmCustMain& screen, std::int64_t account, const std::string& address);
/// Saves it, back to the list on the row: the checksum of that row and of those below it, `rows` in all.
std::uint64_t SaveOnTheCard(orcussch::frmCustMain& screen, const std::string& address, int rows);
/// That checksum, of a row's account and the sum of those below it.
std::uint64_t SumWith(std::int64_t account, std::uint64_t below);

}  // namespace bench
