#include "main_screen.h"

#include <ctime>

#include <algorithm>
#include <exception>
#include <filesystem>
#include <stdexcept>

#include "engine/data_file.h"
#include "engine/engine.h"
#include "entry/screens.h"
#include "platform/host/application.h"
#include "platform/values/convert.h"
#include "session/CustSearch.h"
#include "session/ModCustSch.h"
#include "suite/company_schema.h"
#include "suite/operating_system.h"

namespace bench {
namespace {

constexpr int company = 1;

double Milliseconds(clockid_t clock) {
  timespec time{};
  clock_gettime(clock, &time);
  return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

class ErrorsEndTheRun final : public platform::ErrorLog {
 public:
  // The report's box comes next and ends the run.
  void Write(const platform::ErrorRecord&) noexcept override {}
};

}  // namespace

void YieldWatch::Begin() {
  on_ = true;
  gaps_.clear();
  last_ = {Milliseconds(CLOCK_MONOTONIC), Milliseconds(CLOCK_PROCESS_CPUTIME_ID)};
}

void YieldWatch::Yield() {
  if (!on_) return;
  const Gap now{Milliseconds(CLOCK_MONOTONIC), Milliseconds(CLOCK_PROCESS_CPUTIME_ID)};
  gaps_.push_back({now.wall - last_.wall, now.cpu - last_.cpu});
  last_ = now;
}

void YieldWatch::End() {
  Yield();
  on_ = false;
}

double YieldWatch::WorstGap() const { return gaps_.empty() ? 0 : std::ranges::max(gaps_, {}, &Gap::wall).wall; }
double YieldWatch::WorstWork() const { return gaps_.empty() ? 0 : std::ranges::max(gaps_, {}, &Gap::cpu).cpu; }

double YieldWatch::RareGap() const {
  if (gaps_.empty()) return 0;
  std::vector<Gap> sorted = gaps_;
  std::ranges::sort(sorted, {}, &Gap::wall);
  return sorted[sorted.size() - 1 - sorted.size() / 1000].wall;
}

void WatchedFrontEnd::RunModal(platform::Form& form, const std::function<bool()>& done) {
  user_(form);
  if (!done()) form.Host().Unload(form);
}

void WatchedFrontEnd::DoEvents() {
  watch.Yield();
  painting.Yield();
}

void WatchedFrontEnd::ServePainting() { painting.Yield(); }

int WatchedFrontEnd::MessageBox(const std::string& text, int, const std::string& title) {
  throw std::runtime_error("the program shows a box, \"" + title + "\": " + text);
}

std::string TemporaryFileIn(const std::string& folder, int user) {
  const std::filesystem::path path = std::filesystem::path(folder) / "orvTEMP" / suite::TemporaryFileName(user);
  if (!std::filesystem::exists(path)) {
    std::filesystem::create_directories(path.parent_path());
    engine::CreateDataFile(path.string(), suite::TablesOf(suite::DataFile::Temporary), true);
  }
  return path.string();
}

void ShowMainScreen(Visit visit) {
  TemporaryFileIn(visit.folder, visit.user);
  platform::ApplicationParts parts;
  parts.engine = visit.engine ? std::move(visit.engine) : engine::MakeEngine();
  parts.system = suite::MakeNativeSystem(visit.folder);
  parts.errorLog = std::move(visit.errorLog);
  parts.frontEnd = std::move(visit.frontEnd);
  parts.map = std::move(visit.map);
  parts.path = visit.folder;
  parts.title = "bench";
  platform::Application application(std::move(parts));
  orcussch::AttachApplication(&application);
  orcussch::ConnectScreens();
  {
    orcussch::CustSearch host(application);
    host.UserID(visit.user);
    host.CompanyID(company);
    host.ShowUser();
  }
  orcussch::AttachApplication(nullptr);
}

void AtMainScreen(Visit visit, const MainScreenWork& work) {
  std::exception_ptr problem;
  WatchedFrontEnd* windows = nullptr;
  auto frontEnd = std::make_unique<WatchedFrontEnd>([&](platform::Form& form) {
    try {
      work(dynamic_cast<orcussch::frmCustMain&>(form), *windows);
    } catch (...) {
      problem = std::current_exception();
    }
  });
  windows = frontEnd.get();
  visit.frontEnd = std::move(frontEnd);
  visit.errorLog = std::make_unique<ErrorsEndTheRun>();
  ShowMainScreen(std::move(visit));
  if (problem) std::rethrow_exception(problem);
}

void AtMainScreen(const std::string& folder, const MainScreenWork& work) {
  Visit visit;
  visit.folder = folder;
  AtMainScreen(std::move(visit), work);
}

void StandOnCustomer(orcussch::frmCustMain& screen, std::int64_t account) {
  screen.SSIndexTab1.UserClick(orcussch::tab::Customers);
  const platform::RecordsetRef customers = screen.data[orcussch::tab::Customers].Recordset();
  customers->FindFirst("[AcctNum]=" + std::to_string(account));
  if (customers->NoMatch()) throw std::runtime_error("no customer " + std::to_string(account) + " in the list");
}

void EditOnTheCard(orcussch::frmCustMain& screen, std::int64_t account, const std::string& address) {
  StandOnCustomer(screen, account);
  screen.Toolbar1.Button("tb_EditRec").UserClick();
  dynamic_cast<platform::TextBox&>(*screen.Find("txtAddr2")).Text(address);
}

std::uint64_t SumWith(std::int64_t account, std::uint64_t below) { return below * 31 + static_cast<std::uint64_t>(account); }

std::uint64_t SaveOnTheCard(orcussch::frmCustMain& screen, const std::string& address, int rows) {
  screen.Toolbar1.Button("tb_SaveRec").UserClick();
  const platform::RecordsetRef row = screen.data[0].Recordset();
  const bool saved = screen.SSIndexTab1.Page() == 0 && row->Field("Addr2").As<std::string>() == address;
  if (!saved) throw std::runtime_error("the card was not saved");
  std::uint64_t below = 0;
  for (const platform::ListRow& other : screen.data[0].Window()->RowsAfter(row->Bookmark(), rows - 1))
    below = below * 31 + static_cast<std::uint64_t>(other.cells.at(0).As<std::int32_t>());
  return SumWith(row->Field("AcctNum").As<std::int32_t>(), below);
}

}  // namespace bench
