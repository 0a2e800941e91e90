#include "desks/clerk.h"

#include <algorithm>
#include <thread>

#include "platform/controls/combo.h"
#include "platform/controls/grid.h"
#include "platform/values/convert.h"
#include "robot/hands/model_hands.h"
#include "session/ModCustSch.h"

namespace bench::desks {
namespace {

using orcussch::frmCustMain;
namespace tab = orcussch::tab;

constexpr int kPageRows = 50;
constexpr int kNames = 200;
constexpr int kSharedCustomers = 20;
constexpr int kLettersOfASearch = 4;
constexpr int kLettersOfAQuery = 3;

using Clock = std::chrono::steady_clock;

double MillisecondsSince(Clock::time_point begun) { return std::chrono::duration<double, std::milli>(Clock::now() - begun).count(); }

}  // namespace

Clerk::Clerk(const Habits& habits, DayBook& book) : habits_(habits), book_(book), hands_(robot::MakeModelHands()), chance_(habits.seed) {}
Clerk::~Clerk() = default;

const std::vector<Clerk::Act>& Clerk::Acts() {
  static const std::vector<Act> acts{{"search", 30, &Clerk::Search},
                                     {"page", 25, &Clerk::Page},
                                     {"open a card and leave it", 12, &Clerk::LookAtCard},
                                     {"save a card", 12, &Clerk::SaveCard},
                                     {"add a phone", 6, &Clerk::AddPhone},
                                     {"tick a type", 6, &Clerk::TickType},
                                     {"query by name", 4, &Clerk::Query},
                                     {"back to all customers", 4, &Clerk::AllCustomers},
                                     {"copy for a report", 1, &Clerk::CopyForReport}};
  return acts;
}

void Clerk::At(platform::Form& form) {
  if (auto* main = dynamic_cast<frmCustMain*>(&form)) SpendTheDay(*main);
  if (auto* queries = dynamic_cast<orcussch::frmCustQueries*>(&form)) Ask(*queries);
}

void Clerk::SpendTheDay(frmCustMain& screen) {
  KnowTheCustomers();
  const std::vector<Act>& acts = Acts();
  std::vector<int> often;
  std::ranges::transform(acts, std::back_inserter(often), &Act::often);
  std::discrete_distribution<std::size_t> next(often.begin(), often.end());
  for (const auto begun = Clock::now(); Clock::now() - begun < habits_.time;) {
    const Act& act = acts[next(chance_)];
    const auto started = Clock::now();
    (this->*act.work)(screen);
    book_.Did(act.name, MillisecondsSince(started));
    BackToLists(screen);
    Think(screen);
  }
  book_.Memory(OwnMemory());
  book_.SharedMemory(FairShareOfMemory());
}

void Clerk::KnowTheCustomers() {
  const platform::DatabaseRef data = orcussch::dbCustomer;
  const auto last = data->OpenRecordset("SELECT Max(AcctNum) AS Highest FROM Customers");
  customers_ = last->Field("Highest").As<std::int32_t>();
  last->Close();
  const auto customers = data->OpenRecordset("Customers", platform::RecordsetType::Table);
  customers->SetIndex("ByAcct");
  while (names_.size() < kNames) {
    customers->Seek(">=", {1 + UpTo(customers_)});
    if (!customers->NoMatch()) names_.push_back(platform::CStr(customers->Field("LastName")));
  }
  customers->Close();
}

// While nobody acts, windows do what they owe: they count the list, and show which of its rows this is.
void Clerk::Think(frmCustMain& screen) {
  const double mean = std::max(1.0, static_cast<double>(habits_.think.count()));
  const auto until = Clock::now() + std::chrono::duration<double, std::milli>(std::exponential_distribution(1 / mean)(chance_));
  try {
    const platform::DataControl& list = screen.data[tab::Customers];
    platform::RowWindow* const rows = list.Window();
    bool more = rows != nullptr;
    while (more && Clock::now() < until) more = rows->IdleSlice();
    if (rows != nullptr && !more && list.OnRecord() && rows->CountIsExact()) rows->OrdinalOf(list.Recordset()->Bookmark());
  } catch (const platform::Error&) {
    // The next idle time asks again.
  }
  std::this_thread::sleep_until(until);
}

void Clerk::Press(frmCustMain& screen, const char* key) {
  if (screen.Toolbar1.Button(key).Enabled()) hands_->Click(screen.Toolbar1.Button(key));
}

void Clerk::Paint(frmCustMain& screen, int tab) {
  if (screen.data[tab].OnRecord()) screen.data[tab].Window()->RowsAfter(screen.data[tab].Recordset()->Bookmark(), kPageRows - 1);
}

void Clerk::BackToLists(frmCustMain& screen) {
  // The box that asks whether the entries are to be lost is answered with yes.
  if (screen.SSIndexTab1.Page() == 1) Press(screen, "tb_CancelRec");
  if (screen.SSIndexTab1.Tab() != tab::Customers) hands_->Tab(screen.SSIndexTab1, tab::Customers);
}

void Clerk::Search(frmCustMain& screen) {
  const std::string& name = names_[static_cast<std::size_t>(UpTo(kNames))];
  hands_->Type(screen.txtSearch[tab::Customers], platform::Left(name, kLettersOfASearch), false);
  hands_->Key(screen.txtSearch[tab::Customers], "Enter");
  Paint(screen, tab::Customers);
}

void Clerk::Page(frmCustMain& screen) {
  hands_->Key(screen.grid[tab::Customers], UpTo(4) == 0 ? "PageUp" : "PageDown");
  Paint(screen, tab::Customers);
}

void Clerk::LookAtCard(frmCustMain& screen) {
  Press(screen, "tb_EditRec");
  Press(screen, "tb_CancelRec");
}

void Clerk::SaveCard(frmCustMain& screen) {
  if (UpTo(100) < habits_.shared) {
    const platform::RecordsetRef list = screen.data[tab::Customers].Recordset();
    list->FindFirst("[AcctNum]=" + std::to_string(1 + UpTo(std::min(kSharedCustomers, customers_))));
  }
  Press(screen, "tb_EditRec");
  if (screen.SSIndexTab1.Page() != 1) return;
  hands_->Type(*screen.Find("txtAddr2"), "Suite " + std::to_string(UpTo(1000)), false);
  Press(screen, "tb_SaveRec");
  Paint(screen, tab::Customers);
}

void Clerk::AddPhone(frmCustMain& screen) {
  hands_->Tab(screen.SSIndexTab1, tab::Phones);
  Press(screen, "tb_AddRec");
  if (screen.SSIndexTab1.Page() != 1) return;
  hands_->Type(*screen.Find("txtPhoneArea"), "218", false);
  hands_->Type(*screen.Find("txtPhone"), std::to_string(5'550'000 + UpTo(10'000)), false);
  auto& types = dynamic_cast<platform::ComboBox&>(*screen.Find("cboPhoneTypes"));
  if (const auto rows = types.Rows(); !rows.empty())
    hands_->Pick(types, rows[static_cast<std::size_t>(UpTo(static_cast<int>(rows.size())))]);
  Press(screen, "tb_SaveRec");
  Paint(screen, tab::Phones);
}

void Clerk::TickType(frmCustMain& screen) {
  hands_->Tab(screen.SSIndexTab1, tab::CustomerTypes);
  Paint(screen, tab::CustomerTypes);
  if (!screen.data[tab::CustomerTypes].OnRecord()) return;
  hands_->Mark(screen.grid[tab::CustomerTypes], {screen.data[tab::CustomerTypes].Recordset()->Bookmark()});
  Press(screen, UpTo(2) == 0 ? "tb_AssignSelected" : "tb_UnassignSelected");
  // A tick that was refused stands in its row until it is taken back.
  platform::Grid& ticks = screen.grid[tab::CustomerTypes];
  for (int i = 0; i < 2 && (ticks.OpenCell() || ticks.DataChanged()); ++i) hands_->Key(ticks, "Escape");
  Paint(screen, tab::CustomerTypes);
}

void Clerk::Query(frmCustMain& screen) {
  asked_ = platform::Left(names_[static_cast<std::size_t>(UpTo(kNames))], kLettersOfAQuery);
  Press(screen, "tb_Queries");
  Paint(screen, tab::Customers);
}

void Clerk::AllCustomers(frmCustMain& screen) {
  asked_.clear();
  Press(screen, "tb_Queries");
  Paint(screen, tab::Customers);
}

void Clerk::Ask(orcussch::frmCustQueries& screen) {
  if (!screen.chkSelectAll.Value()) hands_->Click(screen.chkSelectAll);
  if (!asked_.empty()) {
    hands_->Tab(screen.SSTab1, orcussch::criteria::Names);
    hands_->Click(screen.chkSelectNameAdd[0]);
    hands_->Type(screen.txtNameAdd[0], asked_, false);
  }
  hands_->Click(screen.Toolbar1.Button("tb_RunQuery"));
}

void Clerk::CopyForReport(frmCustMain& screen) {
  // Only a query's result is copied.
  if (orcussch::gQuerySQL.empty()) return;
  bool failed = false;
  orcussch::ClearORVTempTable("Customers", failed);
  orcussch::ExecuteSQLStmt(orcussch::dbCustomer,
                           "INSERT INTO Customers IN '" + orcussch::gTempPath + "'" + screen.data[tab::Customers].RecordSource(), false,
                           failed);
}

}  // namespace bench::desks
