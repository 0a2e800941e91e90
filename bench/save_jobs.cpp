#include <stdexcept>

#include "screen_jobs.h"

namespace bench {
namespace {

constexpr int pageRows = 50;

// The sides write different texts, since a row that stays as it is costs the store no writing.
std::string OurAddress(int call) { return "Suite " + std::to_string(call % 997); }
std::string BareAddress(int call) { return "Floor " + std::to_string(call % 997); }

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
  save.readyOurs = [sides](int call) { EditOnTheCard(sides.screen, Pick(sides.company.Somewhere(), call).account, OurAddress(call)); };
  save.readyRaw = [sides](int call) { sides.bare.ReadCard(Pick(sides.company.Somewhere(), call).account); };
  save.ours = [sides](int call) { return SaveOnTheCard(sides.screen, OurAddress(call), pageRows); };
  save.raw = [sides](int call) { return SaveBare(sides, call); };
  save.mostRatio = 2;
  return {save};
}

}  // namespace bench
