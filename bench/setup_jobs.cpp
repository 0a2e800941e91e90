#include <stdexcept>

#include "platform/values/convert.h"
#include "screen_jobs.h"
#include "setup/frmMapCode.h"

// The map codes' screen on a company with many of them.
namespace bench {
namespace {

constexpr int pageRows = 50;

std::string OurPlace(int call) { return "Place " + std::to_string(call % 997); }
std::string BarePlace(int call) { return "Area " + std::to_string(call % 997); }

std::uint64_t KeySum(std::uint64_t sum, std::int64_t key) { return sum * 31 + static_cast<std::uint64_t>(key); }

/// By the numbers, which are the rows' first fields.
std::uint64_t KeySum(const std::vector<platform::ListRow>& rows) {
  std::uint64_t sum = 0;
  for (const auto& row : rows) sum = KeySum(sum, row.cells.at(0).As<std::int32_t>());
  return sum;
}

std::uint64_t KeySum(const raw::Rows& rows) {
  std::uint64_t sum = 0;
  for (std::size_t i = 0; i < rows.Count(); ++i) sum = KeySum(sum, std::get<std::int64_t>(rows.Row(i)[0]));
  return sum;
}

orcussch::frmMapCode& Screen() { return *orcussch::screens::frmMapCode; }

/// A screen that has gone is put away behind the next act of the user.
void Close(orcussch::frmCustMain& main) {
  if (orcussch::frmMapCode* screen = orcussch::screens::frmMapCode.peek()) screen->App().Unload(*screen);
  main.Act([] {});
}

std::int64_t KeyOf(const ScreenSides& sides, int call) { return 1 + std::int64_t{call} * 7919 % sides.bare.MapCodes(); }

Job Opening(const ScreenSides& sides) {
  Job open;
  open.name = "map codes: opening the screen, first page";
  open.calls = 5;
  open.readyOurs = [sides](int) { Close(sides.screen); };
  open.ours = [](int) { return KeySum(Screen().list.data.Window()->RowsAt(0, pageRows)); };
  open.raw = [sides](int) { return KeySum(sides.bare.OpenMapCodes(pageRows)); };
  open.mostRatio = 2;
  return open;
}

Job Saving(const ScreenSides& sides) {
  Job save;
  save.name = "map codes: saving an edited one, from the card to the list on the row again";
  save.calls = 5;
  save.readyOurs = [sides](int call) {
    orcussch::frmMapCode& screen = Screen();
    screen.list.data.Recordset()->FindFirst("[RecordID]=" + std::to_string(KeyOf(sides, call)));
    screen.Toolbar1.Button("tb_EditRec").UserClick();
    screen.txtLocation.Text(OurPlace(call));
  };
  save.ours = [](int number) {
    orcussch::frmMapCode& screen = Screen();
    screen.Toolbar1.Button("tb_SaveRec").UserClick();
    const platform::RecordsetRef row = screen.list.data.Recordset();
    if (!screen.list.grid.Visible() || row->Field("Location").As<std::string>() != OurPlace(number))
      throw std::runtime_error("the map code was not saved");
    return KeySum(0, row->Field("RecordID").As<std::int32_t>()) +
           KeySum(screen.list.data.Window()->RowsAfter(row->Bookmark(), pageRows - 1));
  };
  save.raw = [sides](int call) {
    const std::int64_t key = KeyOf(sides, call);
    sides.bare.SaveMapCode(key, BarePlace(call));
    return KeySum(0, key) + KeySum(sides.bare.MapCodesBehind(key, pageRows - 1));
  };
  save.mostRatio = 2;
  return save;
}

}  // namespace

std::vector<Job> SetupJobs(const ScreenSides& sides) { return {Opening(sides), Saving(sides)}; }

}  // namespace bench
