#include "hostile/procedures.h"

// What a setup screen does, on each of them.
namespace hostile {
namespace {

using Step = std::function<void(const Desk&)>;

Step Click(const char* name) {
  return [name](const Desk& desk) { desk.Click(name); };
}

void AddScreen(Procedures& all, const SetupScreenAtWork& setup) {
  const auto add = [&](const char* name, Step situation, Step run, bool writes = false) {
    Procedure procedure;
    procedure.name = setup.name + "/" + name;
    procedure.situation = [&setup, situation = std::move(situation)](const Desk& desk) {
      if (setup.tab > 0) desk.Tab(setup.tab);
      situation(desk);
    };
    procedure.run = std::move(run);
    procedure.setup = &setup;
    procedure.writesSetup = writes;
    all.push_back(std::move(procedure));
  };
  const auto nothing = [](const Desk&) {};
  const auto standOn = [&setup](const std::string& row) {
    return [&setup, row](const Desk& desk) { desk.Row(setup.list, setup.key, row); };
  };
  const auto fill = [&setup](const char* open) {
    return [&setup, open](const Desk& desk) {
      desk.Click(open);
      for (const auto& [entry, text] : setup.entries) desk.Type(entry, text);
    };
  };
  const auto spoil = [&setup](const char* open) {
    return [&setup, open](const Desk& desk) {
      desk.Click(open);
      desk.Type(setup.entries.front().first, "");
    };
  };

  add("add", nothing, Click("tb_AddRec"));
  add("edit", nothing, Click("tb_EditRec"));
  add("save-new", fill("tb_AddRec"), Click("tb_SaveRec"), true);
  add("save-edited", fill("tb_EditRec"), Click("tb_SaveRec"), true);
  // An act may mend what was refused: typing makes the card whole, and another row can be deleted.
  add("save-refused", spoil("tb_EditRec"), Click("tb_SaveRec"), true);
  add("cancel-new", fill("tb_AddRec"), Click("tb_CancelRec"));
  add("cancel-edited", fill("tb_EditRec"), Click("tb_CancelRec"));
  add("delete", standOn(setup.freeRow), Click("tb_DeleteRec"), true);
  add("delete-refused", standOn(setup.usedRow), Click("tb_DeleteRec"), true);
  add("order", nothing, [&setup](const Desk& desk) { desk.Click(setup.order); });
  add("refresh", nothing, Click("tb_Refresh"));
  add(
      "search", [&setup](const Desk& desk) { desk.Type(setup.search, "F"); }, Click("tb_Search"));
  add("exit", nothing, Click("cmdClose"));
  if (setup.tab == 2) add("queries", nothing, Click("tb_Queries"));
  if (setup.name == "map-lookup") add("select", nothing, Click("tb_Select"));
}

}  // namespace

Procedures SetupProcedures() {
  Procedures all;
  for (const SetupScreenAtWork& setup : SetupScreens()) AddScreen(all, setup);
  return all;
}

}  // namespace hostile
