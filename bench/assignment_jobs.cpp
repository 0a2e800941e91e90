#include <algorithm>
#include <stdexcept>

#include "screen_jobs.h"
#include "ticks.h"

namespace bench {
namespace {

using raw::Ticked;

constexpr int pageRows = 50;
constexpr int bulkTab = orcussch::tab::KeyWords;

// The bar is meant for a company with so many entries; with few of them the tab's own work counts most.
double BarOfEntering(Ticked list, std::int64_t entries) { return entries >= (list == Ticked::Types ? 1000 : 10'000) ? 2 : 0; }

Job Entering(const ScreenSides& sides, Ticked list, const std::string& name) {
  const auto account = [sides](int call) { return Pick(sides.company.Somewhere(), call).account; };
  Job enter;
  enter.name = name;
  enter.calls = list == Ticked::Types ? 5 : 1;
  enter.readyOurs = [sides, account](int call) { StandOnCustomer(sides.screen, account(call)); };
  enter.ours = [sides, list](int) {
    sides.screen.SSIndexTab1.UserClick(TabOf(list));
    return PageSum(sides.screen.data[TabOf(list)].Window()->RowsAt(0, pageRows));
  };
  enter.readyRaw = [sides, list](int) { sides.bare.ClearList(list); };
  enter.raw = [sides, list, account](int call) {
    sides.bare.LoadList(list, account(call));
    return PageSum(sides.bare.Page(list, pageRows));
  };
  enter.mostRatio = BarOfEntering(list, sides.bare.Walk(list));
  return enter;
}

// The two customers that the sides assign to.
struct Assigned {
  std::int64_t ours = 0, raw = 0;
};

void EnterUnticked(const ScreenSides& sides, std::int64_t account) {
  sides.bare.Unassign(Ticked::KeyWords, account);
  // The user has been at the end of the customers, so that their number is asked for.
  sides.screen.SSIndexTab1.UserClick(orcussch::tab::Customers);
  sides.screen.data[orcussch::tab::Customers].Recordset()->MoveLast();
  StandOnCustomer(sides.screen, account);
  sides.screen.SSIndexTab1.UserClick(bulkTab);
}

std::uint64_t SelectAll(const ScreenSides& sides) {
  sides.screen.Toolbar1.Button("tb_SelectAll").UserClick();
  return static_cast<std::uint64_t>(sides.screen.grid[bulkTab].SelBookmarks.Count());
}

Job Selecting(const ScreenSides& sides, const Assigned& customers, const std::string& name) {
  Job select;
  select.name = name;
  select.calls = 1;
  select.readyOurs = [sides, customers](int) { EnterUnticked(sides, customers.ours); };
  select.ours = [sides](int) { return SelectAll(sides); };
  select.readyRaw = [sides, customers](int) {
    sides.bare.ClearList(Ticked::KeyWords);
    sides.bare.LoadList(Ticked::KeyWords, customers.raw);
  };
  select.raw = [sides](int) { return static_cast<std::uint64_t>(sides.bare.Walk(Ticked::KeyWords)); };
  return select;
}

Job Assigning(const ScreenSides& sides, const Assigned& customers, const std::string& name) {
  Job assign = Selecting(sides, customers, name);
  assign.ours = [sides, customers](int) {
    SelectAll(sides);
    sides.screen.Toolbar1.Button("tb_AssignSelected").UserClick();
    return static_cast<std::uint64_t>(sides.bare.Assigned(Ticked::KeyWords, customers.ours));
  };
  const auto ready = assign.readyRaw;
  assign.readyRaw = [sides, customers, ready](int call) {
    sides.bare.Unassign(Ticked::KeyWords, customers.raw);
    ready(call);
  };
  assign.raw = [sides, customers](int) {
    sides.bare.AssignAll(Ticked::KeyWords, customers.raw);
    return static_cast<std::uint64_t>(sides.bare.Assigned(Ticked::KeyWords, customers.raw));
  };
  assign.mostRatio = 3;
  return assign;
}

Assigned CustomersOf(const ScreenSides& sides) { return {sides.company.Somewhere()[0].account, sides.company.Somewhere()[1].account}; }

YieldRow Watched(const ScreenSides& sides, const char* key) {
  YieldWatch& watch = sides.windows.watch;
  watch.Begin();
  sides.screen.Toolbar1.Button(key).UserClick();
  watch.End();
  return {key, watch.Count(), watch.WorstGap(), watch.RareGap(), watch.WorstWork()};
}

}  // namespace

std::vector<Job> AssignmentJobs(const ScreenSides& sides) {
  const Assigned customers = CustomersOf(sides);
  sides.bare.ClearList(Ticked::Types);
  sides.bare.ClearList(Ticked::KeyWords);
  sides.bare.LoadList(Ticked::Types, customers.raw);
  sides.bare.LoadList(Ticked::KeyWords, customers.raw);
  const std::string types = std::to_string(sides.bare.Walk(Ticked::Types));
  const std::string words = std::to_string(sides.bare.Walk(Ticked::KeyWords));
  return {
      Entering(sides, Ticked::Types, "entering the tab of " + types + " customer types (raw: the two inserts, a page)"),
      Entering(sides, Ticked::KeyWords, "entering the tab of " + words + " key words (raw: the two inserts, a page)"),
      Selecting(sides, customers, "selecting all " + words + " key words (raw: one walk of their rows)"),
      Assigning(sides, customers, "selecting and assigning all " + words + " key words (raw: the writes)"),
  };
}

std::vector<YieldRow> YieldsOfBulkCommands(const ScreenSides& sides) {
  EnterUnticked(sides, CustomersOf(sides).ours);
  std::vector<YieldRow> rows;
  for (const char* key : {"tb_SelectAll", "tb_AssignSelected", "tb_UnassignSelected"}) rows.push_back(Watched(sides, key));
  return rows;
}

}  // namespace bench
