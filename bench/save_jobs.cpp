#include <stdexcept>

#include "platform/values/convert.h"
#include "screen_jobs.h"

namespace bench {
namespace {

constexpr int pageRows = 50;

// The sides write different texts, since a row that stays as it is costs the store no writing.
std::string OurAddress(int call) { return "Suite " + std::to_string(call % 997); }
std::string BareAddress(int call) { return "Floor " + std::to_string(call % 997); }

std::uint64_t SumWith(std::int64_t account, std::uint64_t below) { return below * 31 + static_cast<std::uint64_t>(account); }

std::uint64_t SaveOnTheCard(const ScreenSides& sides, int call) {
  orcussch::frmCustMain& screen = sides.screen;
  screen.Toolbar1.Button("tb_SaveRec").UserClick();
  const platform::RecordsetRef row = screen.data[0].Recordset();
  const bool saved = screen.SSIndexTab1.Page() == 0 && row->Field("Addr2").As<std::string>() == OurAddress(call);
  if (!saved) throw std::runtime_error("the card was not saved");
  return SumWith(row->Field("AcctNum").As<std::int32_t>(), SumOf(screen.data[0].Window()->RowsAfter(row->Bookmark(), pageRows - 1)));
}

std::uint64_t SaveBare(const ScreenSides& sides, int call) {
  constexpr std::size_t addressColumn = 5;
  const raw::NameKey& row = Pick(sides.company.Somewhere(), call);
  sides.bare.SaveCard(row.account, BareAddress(call));
  const raw::Rows here = sides.company.Raw().Seek(row.account);
  if (std::get<std::string>(here.Row(0)[addressColumn]) != BareAddress(call)) throw std::runtime_error("the bare row was not saved");
  return SumWith(std::get<std::int64_t>(here.Row(0)[0]), SumOf(sides.company.Raw().After(row, pageRows - 1)));
}

}  // namespace

std::vector<Job> SaveJobs(const ScreenSides& sides) {
  Job save;
  save.name = "saving an edited customer, from the card to the list on the row again";
  save.calls = 10;
  save.readyOurs = [sides](int call) {
    StandOnCustomer(sides.screen, Pick(sides.company.Somewhere(), call).account);
    sides.screen.Toolbar1.Button("tb_EditRec").UserClick();
    dynamic_cast<platform::TextBox&>(*sides.screen.Find("txtAddr2")).Text(OurAddress(call));
  };
  save.readyRaw = [sides](int call) { sides.bare.ReadCard(Pick(sides.company.Somewhere(), call).account); };
  save.ours = [sides](int call) { return SaveOnTheCard(sides, call); };
  save.raw = [sides](int call) { return SaveBare(sides, call); };
  save.mostRatio = 2;
  return {save};
}

}  // namespace bench
