#include <memory>
#include <stdexcept>

#include "raw/taxes.h"
#include "screen_jobs.h"
#include "setup/tax/frmTaxSetup.h"

// The tax setup on a company with many types, entities and rates.
namespace bench {
namespace {

constexpr int pageRows = 50;
constexpr int rowsOfEach = 10'000;

std::uint64_t KeySum(std::uint64_t sum, std::int64_t key) { return sum * 31 + static_cast<std::uint64_t>(key); }

/// By the numbers, which are the rows' first fields.
std::uint64_t KeySum(std::uint64_t sum, const std::vector<platform::ListRow>& rows) {
  for (const auto& row : rows) sum = KeySum(sum, row.cells.at(0).As<std::int32_t>());
  return sum;
}

std::uint64_t KeySum(std::uint64_t sum, const raw::Rows& rows) {
  for (std::size_t i = 0; i < rows.Count(); ++i) sum = KeySum(sum, std::get<std::int64_t>(rows.Row(i)[0]));
  return sum;
}

orcussch::frmTaxSetup& Screen() { return *orcussch::screens::frmTaxSetup; }

void Close() {
  if (orcussch::frmTaxSetup* screen = orcussch::screens::frmTaxSetup.peek()) screen->App().Unload(*screen);
}

std::uint64_t FirstPage(orcussch::TaxTab& tab, std::uint64_t sum) { return KeySum(sum, tab.list.data.Window()->RowsAt(0, pageRows)); }

Job Opening(const std::shared_ptr<raw::Taxes>& bare) {
  Job open;
  open.name = "taxes: opening the screen, first page of each list";
  open.calls = 5;
  open.readyOurs = [](int) { Close(); };
  open.ours = [](int) {
    orcussch::frmTaxSetup& screen = Screen();
    return FirstPage(screen.rates, FirstPage(screen.entities, FirstPage(screen.types, 0)));
  };
  open.raw = [bare](int) {
    return KeySum(KeySum(KeySum(0, bare->OpenTypes(pageRows)), bare->OpenEntities(pageRows)), bare->OpenRates(pageRows));
  };
  open.mostRatio = 2;
  return open;
}

/// A save on one of the tabs; `entry` is the box of its card that changes.
Job Saving(const std::shared_ptr<raw::Taxes>& bare, const char* name, int tab, const char* key, const char* entry,
           std::uint64_t (*save)(raw::Taxes& bare, std::int64_t key, const std::string& text)) {
  const auto keyOf = [](int call) { return 1 + std::int64_t{call} * 7919 % rowsOfEach; };
  Job job;
  job.name = name;
  job.calls = 5;
  job.readyOurs = [=](int call) {
    orcussch::frmTaxSetup& screen = Screen();
    screen.SSIndexTab1.Tab(tab);
    auto& list = dynamic_cast<platform::DataControl&>(*screen.Find("Data", tab));
    list.Recordset()->FindFirst("[" + std::string(key) + "]=" + std::to_string(keyOf(call)));
    screen.Toolbar1.Button("tb_EditRec").UserClick();
    dynamic_cast<platform::TextBox&>(*screen.Find(entry)).Text("Ours " + std::to_string(call % 997));
  };
  job.ours = [=](int) {
    orcussch::frmTaxSetup& screen = Screen();
    screen.Toolbar1.Button("tb_SaveRec").UserClick();
    if (screen.SSIndexTab1.Page() != 0) throw std::runtime_error("the record was not saved");
    auto& list = dynamic_cast<platform::DataControl&>(*screen.Find("Data", tab));
    const platform::RecordsetRef row = list.Recordset();
    return KeySum(KeySum(0, row->Field(key).As<std::int32_t>()), list.Window()->RowsAfter(row->Bookmark(), pageRows - 1));
  };
  job.raw = [=](int call) { return save(*bare, keyOf(call), "Bare " + std::to_string(call % 997)); };
  job.mostRatio = 2;
  return job;
}

}  // namespace

std::vector<Job> TaxJobs(const ScreenSides& sides) {
  const auto bare = std::make_shared<raw::Taxes>(sides.company.Raw());
  bare->FillUp(rowsOfEach);
  return {Opening(bare),
          Saving(bare, "taxes: saving an edited rate, from the card to the list on the row again", orcussch::taxtab::Rates, "TaxID",
                 "txtComment",
                 [](raw::Taxes& taxes, std::int64_t key, const std::string& text) {
                   taxes.SaveRate(key, text);
                   return KeySum(KeySum(0, key), taxes.RatesBehind(key, pageRows - 1));
                 }),
          Saving(bare, "taxes: saving an edited type, from the card to the list on the row again", orcussch::taxtab::Types, "TaxType",
                 "txtTaxType", [](raw::Taxes& taxes, std::int64_t key, const std::string& text) {
                   taxes.SaveType(key, text);
                   return KeySum(KeySum(0, key), taxes.TypesBehind(key, pageRows - 1));
                 })};
}

}  // namespace bench
