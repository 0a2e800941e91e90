#include "hostile/procedures.h"
#include "maintenance/assignment_tab.h"

// Showing, visiting, ordering and refreshing lists, the loads, search, bulk commands, and the ways out.
namespace hostile {
namespace {

using namespace orcussch;
using Step = std::function<void(const Desk&)>;

void Nothing(const Desk&) {}
Step Click(const std::string& name) {
  return [name](const Desk& desk) { desk.Click(name); };
}
Step GoTo(int tab) {
  return [tab](const Desk& desk) {
    if (tab != tab::Customers) desk.Tab(tab);
  };
}
Step Then(const Step& first, const Step& second) {
  return [first, second](const Desk& desk) {
    first(desk);
    second(desk);
  };
}
Step Direct(void (*procedure)(frmCustMain&)) {
  return [procedure](const Desk& desk) { desk.Run(procedure); };
}

void AddShowing(Procedures& all) {
  all.push_back({"show/host-account", {}, {}});
  Procedure nobody{"show/unknown-account", {}, {}};
  nobody.customer = 999;
  all.push_back(nobody);
  Procedure billable{"show/billable", {}, {}};
  billable.billing = "B";
  all.push_back(billable);
  Procedure nonBillable{"show/non-billable", {}, {}};
  nonBillable.billing = "N";
  nonBillable.customer = kNonBillable;
  all.push_back(nonBillable);
}

void AddLists(Procedures& all) {
  for (int tab = 0; tab < tab::Count; ++tab) {
    const std::string number = std::to_string(tab);
    const std::string list = "grid(" + number + ")";
    if (tab != tab::Customers) all.push_back({"tab/" + number, Nothing, [tab](const Desk& desk) { desk.Tab(tab); }});
    if (tab != tab::Customers) {
      // The list of the customer of before stands there until it is built anew.
      const auto wasThere = [tab](const Desk& desk) {
        desk.Tab(tab);
        desk.Tab(tab::Customers);
        desk.Row("grid(0)", "LastName", "Gray");
      };
      all.push_back({"tab-again/" + number, wasThere, [tab](const Desk& desk) { desk.Tab(tab); }});
    }
    all.push_back({"refresh/" + number + "/key", GoTo(tab), Click("tb_Refresh")});
    all.push_back({"refresh/" + number + "/menu", GoTo(tab), Click("miRefresh")});
    all.push_back({"order/" + number, GoTo(tab), Click("optOrder" + number + "(1)")});
    all.push_back({"heading/" + number, GoTo(tab), [list](const Desk& desk) { desk.Head(list, 1); }});
    const std::string box = "txtSearch(" + number + ")";
    const auto typed = [box](const Desk& desk) { desk.Type(box, "1"); };
    all.push_back({"search/" + number + "/key", Then(GoTo(tab), typed), Click("tb_Find")});
    all.push_back({"search/" + number + "/enter", Then(GoTo(tab), typed), [box](const Desk& desk) { desk.Key(box, "Enter"); }});
  }
  all.push_back({"tab/back", GoTo(tab::Phones), [](const Desk& desk) { desk.Tab(tab::Customers); }});
  for (const char* which : {"1", "2"}) {
    all.push_back({std::string("filter/types/") + which, GoTo(tab::CustomerTypes), Click(std::string("optCustTypeDisp(") + which + ")")});
    all.push_back({std::string("filter/words/") + which, GoTo(tab::KeyWords), Click(std::string("optKeyWordDisp(") + which + ")")});
    all.push_back({std::string("filter/taxes/") + which, Click("miEditRec"), Click(std::string("optTaxDisp(") + which + ")")});
  }
  all.push_back({"heading/taxes", Click("miEditRec"), [](const Desk& desk) { desk.Head("grdTaxBasis", 1); }});
}

void AddPrinting(Procedures& all) {
  for (int tab = 0; tab < tab::Count; ++tab)
    for (const char* command : {"tb_Print", "miPreview"})
      all.push_back({"print/" + std::to_string(tab) + "/" + command, GoTo(tab), Click(command)});
  all.push_back({"statistics", Nothing, Click("tb_Statistics")});
  all.push_back({"catalogue", Nothing, Click("tb_Reports")});
}

void AddMaps(Procedures& all) {
  all.push_back({"map/one", Nothing, Click("tb_MapCustomer")});
  all.push_back({"map/one-by-menu", GoTo(tab::Phones), Click("miMapCustomer")});
  Procedure everybody{"map/all", Nothing, Click("tb_MapAll")};
  everybody.loop = true;
  all.push_back(everybody);
  all.push_back({"relationships", Nothing, Click("miRelationships")});
}

void AddLoads(Procedures& all) {
  all.push_back({"load/taxes", Nothing, Direct([](frmCustMain& screen) { screen.LoadTaxBasis(false); })});
  all.push_back({"load/taxes-of-customer", Nothing, Direct([](frmCustMain& screen) { screen.LoadTaxBasis(true); })});
  all.push_back({"load/types", GoTo(tab::CustomerTypes), Direct([](frmCustMain& screen) { LoadEntries(screen, tab::CustomerTypes); })});
  all.push_back({"load/words", GoTo(tab::KeyWords), Direct([](frmCustMain& screen) { LoadEntries(screen, tab::KeyWords); })});
}

/// A list whose rows can be marked: how it is reached, its grid.
struct Markable {
  const char* name;
  Step reach;
  const char* grid;
  int writes;
};

void AddMarked(Procedures& all, const Markable& list) {
  const std::string grid = list.grid;
  const Step marked = Then(list.reach, [grid](const Desk& desk) { desk.MarkAll(grid); });
  const auto add = [&](const std::string& name, const Step& situation, const std::string& command, int writes) {
    for (const auto& [way, prefix] : {std::pair("key", "tb_"), std::pair("menu", "mi")}) {
      Procedure procedure{std::string(list.name) + "/" + name + "/" + way, situation, Click(prefix + command), writes};
      procedure.loop = true;
      all.push_back(procedure);
    }
  };
  add("select-all", list.reach, "SelectAll", -1);
  add("unselect-all", marked, "UnselectAll", -1);
  add("assign", marked, "AssignSelected", list.writes);
  add("unassign", marked, "UnassignSelected", list.writes);
  const Step onFirst = list.reach;
  for (const char* ticked : {"True", "False"}) {
    const auto tick = [grid, ticked](const Desk& desk) { desk.Cell(grid, 0, ticked); };
    all.push_back({std::string(list.name) + "/tick-" + ticked, onFirst, tick, list.writes});
  }
}

void AddBulk(Procedures& all) {
  AddMarked(all, {"types", GoTo(tab::CustomerTypes), "grid(5)", tab::CustomerTypes});
  AddMarked(all, {"words", GoTo(tab::KeyWords), "grid(6)", tab::KeyWords});
  // The card's ticks stand in the work table until the card is saved.
  AddMarked(all, {"taxes", Click("miEditRec"), "grdTaxBasis", -1});

  Procedure addAll{"rates/add-all-departments", GoTo(tab::LaborRates), Click("cmdAddAllDepts"), tab::LaborRates};
  addAll.loop = true;
  all.push_back(addAll);
  Procedure apply{"rates/apply-adjustment",
                  Then(GoTo(tab::LaborRates),
                       [](const Desk& desk) {
                         desk.Click("optAllDept(1)");
                         desk.Type("txtAdjustAllDept", "25");
                       }),
                  Click("cmdAddAllDepts"), tab::LaborRates};
  apply.loop = true;
  all.push_back(apply);
  Procedure refused{"rates/add-all-refused", GoTo(tab::LaborRates), Click("cmdAddAllDepts"), tab::LaborRates};
  refused.customer = kCustomerWithoutRates;
  all.push_back(refused);
}

void AddWaysOut(Procedures& all) {
  all.push_back({"exit/menu", Nothing, Click("miExit")});
  all.push_back({"exit/frame", Nothing, [](const Desk& desk) { desk.CloseByFrame(); }});
  all.push_back({"exit/card-open", Click("miEditRec"), [](const Desk& desk) { desk.CloseByFrame(); }});
  all.push_back({"exit/select-key", Nothing, Click("tb_Select")});
  all.push_back({"exit/select-menu", GoTo(tab::Phones), Click("miSelect")});
}

}  // namespace

Procedures ListProcedures() {
  Procedures all;
  AddShowing(all);
  AddLists(all);
  AddPrinting(all);
  AddMaps(all);
  AddLoads(all);
  AddBulk(all);
  AddWaysOut(all);
  return all;
}

}  // namespace hostile
