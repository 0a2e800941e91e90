#include "hostile/procedures.h"

// What the query screen does: opened from the main screen, and first of all.
namespace hostile {
namespace {

using Step = std::function<void(const Desk&)>;

void Nothing(const Desk&) {}
Step Click(const char* name) {
  return [name](const Desk& desk) { desk.Click(name); };
}

/// Customers by their last name; the user's own start-up choice has ticked that box.
Step NamedBy(const char* beginning) {
  return [beginning](const Desk& desk) {
    if (!desk.CanUse("txtNameAdd(0)")) desk.Click("chkSelectNameAdd(0)");
    desk.Type("txtNameAdd(0)", beginning);
  };
}

void AllCustomers(const Desk& desk) { desk.Click("chkSelectAll"); }

/// The tab of the lists with one of them open.
Step ListOpen(const char* box) {
  return [box](const Desk& desk) {
    desk.Tab("SSTab1", 1);
    desk.Click(box);
  };
}

Step Marked(const char* box, const char* grid) {
  return [open = ListOpen(box), grid](const Desk& desk) {
    open(desk);
    desk.MarkAll(grid);
  };
}

Step Searched(const char* box, const char* entry, const char* text) {
  return [open = ListOpen(box), entry, text](const Desk& desk) {
    open(desk);
    desk.Type(entry, text);
  };
}

}  // namespace

Procedures QueryProcedures() {
  Procedures all;
  const auto add = [&](Queries queries, const std::string& name, const Step& situation, const Step& run, const Step& earlier = {}) {
    Procedure procedure;
    procedure.name = (queries == Queries::First ? "queries-first/" : "queries/") + name;
    procedure.situation = situation;
    procedure.run = run;
    procedure.queries = queries;
    procedure.earlier = earlier;
    all.push_back(std::move(procedure));
  };
  add(Queries::Opening, "open-and-leave/key", Nothing, Click("tb_Queries"));
  add(Queries::Opening, "open-and-leave/menu", Nothing, Click("miQueries"));
  add(Queries::Opening, "open-again", Click("tb_Queries"), Click("tb_Queries"));
  for (const Queries queries : {Queries::FromMain, Queries::First}) {
    add(queries, "run/all", AllCustomers, Click("tb_RunQuery"));
    add(queries, "run/names", NamedBy("G"), Click("tb_RunQuery"));
    add(queries, "run/nobody", NamedBy("Q"), Click("tb_RunQuery"));
    add(queries, "run/words", Marked("chkSelectMisc(3)", "grid(0)"), Click("tb_RunQuery"));
    add(queries, "run/types", Marked("chkSelectMisc(4)", "grid(1)"), Click("tb_RunQuery"));
    add(queries, "leave", NamedBy("G"), Click("tb_Cancel"));
  }
  const Step earlier = [](const Desk& desk) {
    NamedBy("H")(desk);
    desk.Click("tb_RunQuery");
  };
  add(Queries::FromMain, "run/another", NamedBy("G"), Click("tb_RunQuery"), earlier);
  add(Queries::FromMain, "run/all-again", AllCustomers, Click("tb_RunQuery"), earlier);
  add(Queries::FromMain, "leave/again", NamedBy("G"), Click("tb_Cancel"), earlier);
  const auto enter = [](const char* entry) { return [entry](const Desk& desk) { desk.Key(entry, "Enter"); }; };
  add(Queries::FromMain, "search/words", Searched("chkSelectMisc(3)", "txtSearch(0)", "S"), enter("txtSearch(0)"));
  add(Queries::FromMain, "search/types", Searched("chkSelectMisc(4)", "txtSearch(1)", "T"), enter("txtSearch(1)"));
  add(Queries::FromMain, "search/missed", Searched("chkSelectMisc(3)", "txtSearch(0)", "Q"), enter("txtSearch(0)"));
  return all;
}

}  // namespace hostile
