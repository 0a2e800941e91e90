#include <functional>
#include <stdexcept>

#include "platform/convert.h"
#include "screen_jobs.h"

namespace bench {
namespace {

constexpr int pageRows = 50;

// Both sides write the same text, so that the file is the same afterwards.
std::string AddressOf(int call) { return "Suite " + std::to_string(call % 997); }

std::uint64_t Mixed(std::uint64_t sum, std::int64_t account, std::string_view address) {
  return (sum * 31 + static_cast<std::uint64_t>(account)) * 31 + std::hash<std::string_view>{}(address);
}

std::uint64_t SaveOnTheCard(const ScreenSides& sides) {
  orcussch::frmCustMain& screen = sides.screen;
  screen.Toolbar1.Button("tb_SaveRec").UserClick();
  if (screen.SSIndexTab1.Page() != 0) throw std::runtime_error("the card was not saved");
  const platform::Recordset& row = screen.data[0].Recordset();
  const std::uint64_t below = SumOf(screen.data[0].Window()->RowsAfter(row.Bookmark(), pageRows - 1));
  return Mixed(below, row.Field("AcctNum").As<std::int32_t>(), row.Field("Addr2").As<std::string>());
}

std::uint64_t SaveBare(const ScreenSides& sides, int call) {
  constexpr std::size_t addressColumn = 5;
  const raw::NameKey& row = Pick(sides.company.Somewhere(), call);
  sides.bare.SaveCard(row.account, AddressOf(call));
  const raw::Rows here = sides.company.Raw().Seek(row.account);
  const std::uint64_t below = SumOf(sides.company.Raw().After(row, pageRows - 1));
  return Mixed(below, std::get<std::int64_t>(here.Row(0)[0]), std::get<std::string>(here.Row(0)[addressColumn]));
}

}  // namespace

std::vector<Job> SaveJobs(const ScreenSides& sides) {
  Job save;
  save.name = "saving an edited customer, from the card to the list on the row again";
  save.calls = 10;
  save.readyOurs = [sides](int call) {
    StandOnCustomer(sides.screen, Pick(sides.company.Somewhere(), call).account);
    sides.screen.Toolbar1.Button("tb_EditRec").UserClick();
    sides.screen.txtAddr2.Text(AddressOf(call));
  };
  save.readyRaw = [sides](int call) { sides.bare.ReadCard(Pick(sides.company.Somewhere(), call).account); };
  save.ours = [sides](int) { return SaveOnTheCard(sides); };
  save.raw = [sides](int call) { return SaveBare(sides, call); };
  save.mostRatio = 2;
  return {save};
}

}  // namespace bench
