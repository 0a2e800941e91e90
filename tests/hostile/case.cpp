#include "hostile/case.h"

#include <algorithm>

#include "engine/engine.h"
#include "hostile/checks.h"
#include "hostile/query_screen.h"
#include "library/entry.h"
#include "library/orcussch.h"
#include "robot/language/failure.h"
#include "session/CustSearch.h"
#include "suite/operating_system.h"

namespace hostile {
namespace {

constexpr int kPaintedRows = 20;
constexpr int kMostReports = 40;
constexpr int kObjectNotSet = 91;
constexpr int kObjectClosed = 3420;
constexpr std::int32_t kThread = 4711;

class KeptReports final : public platform::ErrorLog {
 public:
  explicit KeptReports(std::vector<platform::ErrorRecord>& records) : records_(records) {}
  void Write(const platform::ErrorRecord& record) noexcept override { records_.push_back(record); }

 private:
  std::vector<platform::ErrorRecord>& records_;
};

/// Prints nothing.
class NoPaper final : public platform::ReportEngine {
 public:
  int PrintReport(const platform::ReportJob&) override { return 0; }
};

/// Every address may mean two places.
class TwoPlaces final : public platform::MapEngine {
 public:
  platform::GeocodeAnswer Geocode(const std::string&) override {
    return {.candidates = {"-9300000 4500000 here", "-9300500 4500500 there"}, .positionFound = true, .latitude = 4500000, .longitude = -9300000};
  }
  std::int32_t Distance(std::int32_t, std::int32_t, std::int32_t, std::int32_t) override { return 1000; }
  void Prepare() override {}
  void AddPin(const platform::MapPin&) override {}
  void RemovePins() override {}
  void Draw(std::int32_t, std::int32_t, std::int32_t) override {}
};

class Running {
 public:
  Running(const Image& image, const Case& one, const Books* before) : image_(image), case_(one), before_(before) {}
  Outcome Go();

 private:
  std::unique_ptr<platform::Application> Build();
  void Demand(orcussch_result result, orcussch_result wanted, const char* call);
  void Show();
  void HostRelease();
  void Serve(platform::Form& form);
  void Perform();
  void ServeSetup(const platform::Form& form);
  void ServeQueries(const orcussch::frmCustQueries& screen);
  void LookAtQueries(const orcussch::frmCustQueries& screen, const std::string& when);
  bool MainIsUp() const { return desk_->Screen() != nullptr && desk_->Screen()->Visible(); }
  void LookAtSetup(const platform::Form& form, const std::string& when);
  void Arm();
  void Interrupt();
  void Allow(bool alsoTab);
  void Paint() const;
  void LookAt(const std::string& when);
  void GoOn();
  void AfterTheScreen();
  void CountReports();
  void Fault(const std::string& what) { outcome_.faults.push_back(what); }

  const Image& image_;
  const Case& case_;
  const Books* before_;
  Outcome outcome_;
  Allowed allowed_;
  std::vector<std::string> asked_;  ///< the questions
  std::vector<platform::ErrorRecord> reports_;
  InterruptingFrontEnd* frontEnd_ = nullptr;
  platform::Application* app_ = nullptr;
  std::unique_ptr<Desk> desk_;
  orcussch_handle* host_ = nullptr;
  bool openedEarlier_ = false;  ///< the query screen
};

std::unique_ptr<platform::Application> Running::Build() {
  platform::ApplicationParts parts;
  auto frontEnd = std::make_unique<InterruptingFrontEnd>();
  frontEnd_ = frontEnd.get();
  engine::EngineOptions options;
  if (case_.live) options.exactRows = 0;
  parts.engine = engine::MakeEngine(options);
  parts.system = suite::MakeNativeSystem(image_.Folder());
  parts.errorLog = std::make_unique<KeptReports>(reports_);
  parts.reports = std::make_unique<NoPaper>();
  parts.map = std::make_unique<TwoPlaces>();
  parts.frontEnd = std::move(frontEnd);
  parts.path = image_.Folder();
  parts.title = "The host";
  parts.threadId = kThread;
  auto application = std::make_unique<platform::Application>(std::move(parts));
  app_ = application.get();
  app_->OnUnhandled = [this](const platform::Error& error) {
    ++outcome_.notes["unhandled " + std::to_string(error.Number()) + " " + error.Description()];
  };
  desk_ = std::make_unique<Desk>(*app_);
  frontEnd_->answerYes = case_.yes;
  frontEnd_->keepPlaces = case_.act == nullptr;
  frontEnd_->paint = [this] { Paint(); };
  frontEnd_->serve = [this](platform::Form& form) { Serve(form); };
  // What is asked about is what the user then deletes, whichever row stands there by now.
  frontEnd_->onQuestion = [this](const std::string& text) {
    if (text.starts_with("Are you sure you delete the current ")) Allow(true);
    asked_.push_back(text);
  };
  return application;
}

void Running::Demand(orcussch_result result, orcussch_result wanted, const char* call) {
  if (result != wanted)
    Fault(std::string(call) + " gave " + std::to_string(result) + ", not " + std::to_string(wanted) + ": " + orcussch_last_error());
}

/// The customer named now, and the tab, may be written to.
void Running::Allow(bool alsoTab) {
  const orcussch::frmCustMain* screen = desk_->Screen();
  if (screen == nullptr) return;
  allowed_.customers.insert(NamedAccount(*screen));
  if (alsoTab) allowed_.tabs.insert(screen->Tab());
}

void Running::Arm() {
  Allow(false);
  if (case_.procedure->writes >= 0) allowed_.tabs.insert(case_.procedure->writes);
  if (case_.procedure->writesSetup) allowed_.tables.insert(case_.procedure->setup->table);
  if (case_.act == nullptr) outcome_.before = Books::Of(image_.CustomerFile());
  frontEnd_->Arm(case_.yield, [this] { Interrupt(); });
}

void Running::Interrupt() {
  try {
    if (case_.act->release) {
      HostRelease();
      return;
    }
    const SetupScreenAtWork* setup = case_.procedure->setup;
    if (case_.act->writes && setup != nullptr) allowed_.tables.insert(setup->table);
    if (case_.act->writes && setup == nullptr) Allow(true);
    case_.act->run(*desk_);
    outcome_.performed = true;
  } catch (const robot::ActionFailed&) {
    // The screen refuses it at this yield.
  }
}

/// From a timer of his own the host gives the session up, shows it again, sets another company: all refused with a code.
void Running::HostRelease() {
  Demand(orcussch_release(host_), ORCUSSCH_BUSY, "release");
  Demand(orcussch_show_user(host_), ORCUSSCH_BUSY, "show_user");
  Demand(orcussch_set_number(host_, "CompanyID", 1), ORCUSSCH_BUSY, "set_number");
  outcome_.performed = true;
}

/// A window reads the rows that it shows.
void Running::Paint() const {
  const orcussch::frmCustMain* screen = desk_->Screen();
  if (screen == nullptr || !screen->Visible()) return;
  const auto& grid = screen->grid[screen->Tab()];
  if (platform::RowWindow* window = grid.Data()->Window()) {
    try {
      window->RowsAt(0, kPaintedRows);
    } catch (const platform::Error&) {
      // A list that can't be read stays as it was.
    }
  }
}

void Running::Serve(platform::Form& form) {
  const SetupScreenAtWork* setup = case_.procedure->setup;
  if (setup != nullptr && form.Name() == setup->form) return ServeSetup(form);
  if (const auto* queries = dynamic_cast<const orcussch::frmCustQueries*>(&form)) return ServeQueries(*queries);
  if (dynamic_cast<orcussch::frmCustMain*>(&form) == nullptr) return;  // closed at once
  if (setup != nullptr) {
    setup->open(*desk_);  // comes back when that screen has closed
  } else if (case_.procedure->queries == Queries::FromMain) {
    if (case_.procedure->earlier) desk_->Click("tb_Queries");
    openedEarlier_ = true;
    desk_->Click("tb_Queries");
  } else if (case_.procedure->run && case_.procedure->queries != Queries::First) {
    Perform();
  }
  frontEnd_->Disarm();
  if (setup == nullptr) outcome_.asked = frontEnd_->asked;
  LookAt("");
  GoOn();
}

void Running::Perform() {
  try {
    case_.procedure->situation(*desk_);
    Arm();
    case_.procedure->run(*desk_);
  } catch (const robot::ActionFailed& refused) {
    Fault(std::string("the procedure can't be set off: ") + refused.what());
  }
}

/// The setup screen is up; the user goes on out of a card and through a refresh before he leaves it.
void Running::ServeSetup(const platform::Form& form) {
  Perform();
  frontEnd_->Disarm();
  outcome_.asked = frontEnd_->asked;
  frontEnd_->answerYes = true;
  LookAtSetup(form, "");
  for (const char* command : {"tb_CancelRec", "tb_Refresh", "tb_AddRec", "tb_CancelRec"})
    if (form.Visible() && desk_->CanUse(command)) desk_->Click(command);
  LookAtSetup(form, "when the user goes on: ");
}

/// The query screen is up: above the main screen, or first of all.
void Running::ServeQueries(const orcussch::frmCustQueries& screen) {
  const Queries queries = case_.procedure->queries;
  if (queries != Queries::None && MainIsUp() == (queries == Queries::First)) return;
  if (queries == Queries::None || queries == Queries::Opening) {
    const char* command = queries == Queries::None ? "tb_RunQuery" : "tb_Cancel";
    if (MainIsUp() && desk_->CanUse(command)) desk_->Click(command);
    return;
  }
  if (case_.procedure->earlier && !openedEarlier_) return case_.procedure->earlier(*desk_);
  Perform();
  frontEnd_->Disarm();
  LookAtQueries(screen, "");
  for (const char* command : {"tb_RunQuery", "tb_Cancel"})
    if (screen.Visible() && desk_->CanUse(command)) desk_->Click(command);
  LookAtQueries(screen, "when the user goes on: ");
}

void Running::LookAtQueries(const orcussch::frmCustQueries& screen, const std::string& when) {
  if (!screen.Loaded()) return;
  for (const std::string& mismatch : Mismatches(screen)) Fault(when + mismatch);
  if (screen.Visible() && app_->MousePointer() != platform::pointer::Default)
    Fault(when + "the query screen: the pointer stays an hourglass");
  if (!Writable(image_.CustomerFile())) Fault(when + "the file stays locked");
}

void Running::LookAtSetup(const platform::Form& form, const std::string& when) {
  if (!form.Loaded()) return;
  for (const std::string& mismatch : Mismatches(*case_.procedure->setup, form)) Fault(when + mismatch);
  if (!Writable(image_.CustomerFile())) Fault(when + "the file stays locked");
}

void Running::LookAt(const std::string& when) {
  const orcussch::frmCustMain* screen = desk_->Screen();
  if (screen == nullptr) return;
  for (const std::string& mismatch : Mismatches(*screen, Books::Of(image_.CustomerFile()))) Fault(when + mismatch);
  for (const std::string& mismatch : QueryMismatches(*screen)) Fault(when + mismatch);
  // After its own report the toolbar stays shut, and the menu is there for the user.
  const bool told =
      std::any_of(reports_.begin(), reports_.end(), [](const auto& report) { return report.module == "frmCustMain.Toolbar1_ButtonClick"; });
  if (!told && !screen->Toolbar1.Enabled()) Fault(when + "the toolbar stays shut");
  if (!Writable(image_.CustomerFile())) Fault(when + "the file stays locked");
}

/// The user goes on as he would: out of the card, a refresh, another tab and back.
void Running::GoOn() {
  frontEnd_->answerYes = true;
  const auto step = [](const auto& act) {
    try {
      act();
    } catch (const robot::ActionFailed&) {
      // Not to be reached here.
    }
  };
  const auto cardOpen = [this] { return desk_->Screen() != nullptr && desk_->Screen()->SSIndexTab1.Page() != 0; };
  if (cardOpen()) step([this] { desk_->Click("miCancelRec"); });
  if (cardOpen()) {
    Fault("the card can't be left");
    return;
  }
  step([this] { desk_->Click("miRefresh"); });
  step([this] { desk_->Tab(orcussch::tab::Customers); });
  step([this] { desk_->Click("miRefresh"); });
  step([this] { desk_->Tab(orcussch::tab::Phones); });
  LookAt("when the user goes on: ");
}

void Running::Show() {
  image_.Restore();
  library::MakeApplicationsBy([this](const library::DefaultApplicationOptions&) { return Build(); });
  const std::string folder = image_.Folder();
  orcussch_options options{};
  options.size = sizeof options;
  options.library_folder = options.local_folder = folder.c_str();
  options.settings_folder = "";
  Demand(orcussch_create(&options, &host_), ORCUSSCH_OK, "create");
  if (host_ == nullptr) throw std::runtime_error("no session");
  Demand(orcussch_set_number(host_, "UserID", 1), ORCUSSCH_OK, "set UserID");
  Demand(orcussch_set_number(host_, "CompanyID", 1), ORCUSSCH_OK, "set CompanyID");
  Demand(orcussch_set_number(host_, "Customer", case_.procedure->customer), ORCUSSCH_OK, "set Customer");
  Demand(orcussch_set_text(host_, "BillingStatus", case_.procedure->billing.c_str()), ORCUSSCH_OK, "set BillingStatus");
  if (!case_.procedure->run) Arm();
  Demand(orcussch_show_user(host_), ORCUSSCH_OK, "show_user");
}

void Running::AfterTheScreen() {
  frontEnd_->Disarm();
  if (frontEnd_->wouldNotGo) Fault("the screen does not close");
  if (app_->FormCount() != 0) Fault("a screen stays loaded: " + app_->FormAt(0).Name());
  if (app_->ActiveForm() != nullptr) Fault("a screen stays up");
  if (orcussch::CustSearch::Running()) Fault("ShowUser counts as running");
  if (orcussch::screens::frmCustMain.peek() != nullptr) {
    Fault("the screen is not given up");
    orcussch::screens::frmCustMain.release();
  }
  outcome_.places = frontEnd_->Places();
  Demand(orcussch_release(host_), ORCUSSCH_OK, "release");
  host_ = nullptr;
  if (!Writable(image_.CustomerFile())) Fault("the file stays locked after the end");
  const Books after = Books::Of(image_.CustomerFile());
  if (const Books* before = before_ != nullptr ? before_ : outcome_.before ? &*outcome_.before : nullptr) {
    for (const std::string& stray : Strays(*before, after, allowed_)) Fault(stray);
    for (const std::string& row : Unasked(*before, after, asked_)) Fault(row);
  }
}

void Running::CountReports() {
  std::map<std::string, int> gone;
  for (const platform::ErrorRecord& report : reports_) {
    const std::string key = report.module + " " + std::to_string(report.number);
    ++outcome_.notes["report " + key];
    if (report.number == kObjectClosed || report.number == kObjectNotSet) ++gone[key];
  }
  for (const auto& [key, count] : gone)
    if (case_.procedure->loop && count > 1) Fault(std::to_string(count) + " reports of a list that has gone: " + key);
  if (reports_.size() > kMostReports) Fault(std::to_string(reports_.size()) + " reports");
}

Outcome Running::Go() {
  try {
    Show();
    AfterTheScreen();
  } catch (const std::exception& error) {
    Fault(std::string("an exception left the program: ") + error.what());
  }
  CountReports();
  orcussch_release(host_);
  library::MakeApplicationsBy({});
  return std::move(outcome_);
}

}  // namespace

const std::vector<Act>& ActsFor(const Procedure& procedure) {
  if (procedure.setup != nullptr) return SetupActs();
  return procedure.queries == Queries::None ? Acts() : QueryActs();
}

std::string Words(const Case& one) {
  std::string words = "--only " + one.procedure->name;
  if (one.act != nullptr) words += " --act " + one.act->name + " --yield " + std::to_string(one.yield);
  return words + (one.yes ? "" : " --no") + (one.live ? " --live" : " --exact");
}

Outcome Run(const Image& image, const Case& one, const Books* before) { return Running(image, one, before).Go(); }

}  // namespace hostile
