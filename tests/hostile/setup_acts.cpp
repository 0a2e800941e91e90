#include "hostile/acts.h"
#include "robot/language/failure.h"

// What a user can do on a setup screen that waits.
namespace hostile {
namespace {

void Heading(const Desk& desk) { desk.Head(desk.ListUp(), 1); }

/// Of these controls the one that the user can reach.
std::string Reached(const Desk& desk, std::initializer_list<const char*> names) {
  for (const char* name : names)
    if (desk.CanUse(name)) return name;
  throw robot::Refused("nothing of the kind is to be seen");
}

/// The order that is not chosen.
void Order(const Desk& desk) {
  const std::string up = Reached(desk, {"optOrder(0)", "optOrder0(0)", "optOrder1(0)", "optOrder2(0)"});
  const std::string down = up.substr(0, up.size() - 3) + "(1)";
  desk.Click(desk.IsOn(down) ? up : down);
}

void Search(const Desk& desk) {
  const std::string box = Reached(desk, {"txtSearch", "txtSearch(0)", "txtSearch(1)", "txtSearch(2)"});
  desk.Type(box, "F");
  desk.Key(box, "Enter");
}

void OtherRow(const Desk& desk) { desk.LastRow(desk.ListUp()); }
void Cell(const Desk& desk) { desk.Cell(desk.ListUp(), 1, "Renamed"); }

/// Types into the card that is open.
void TypeOn(const Desk& desk) {
  desk.Type(Reached(desk, {"txtPhone", "txtCreditCardName", "txtMapCode", "txtTaxType", "txtTaxEntity", "txtDescription"}), "Typed late");
}

/// A second command, which the toolbar must not let in.
void Command(const Desk& desk) { desk.Click(desk.CanUse("tb_SaveRec") ? "tb_SaveRec" : "tb_AddRec"); }

}  // namespace

const std::vector<Act>& SetupActs() {
  static const std::vector<Act> acts = {
      {"refresh-key", false, [](const Desk& desk) { desk.Click("tb_Refresh"); }},
      {"heading", false, Heading},
      {"order", false, Order},
      {"search", false, Search},
      {"other-row", false, OtherRow},
      {"cell", true, Cell},
      {"type", false, TypeOn},
      {"command", false, Command},
      {"exit-button", false, [](const Desk& desk) { desk.Click("cmdClose"); }},
      {"exit-frame", false, [](const Desk& desk) { desk.CloseTopByFrame(); }},
      {"exit-main", false, [](const Desk& desk) { desk.CloseMainByFrame(); }},
      {"main-goes", false, [](const Desk& desk) { desk.UnloadMain(); }},
      {"host-release", false, nullptr, true},
  };
  return acts;
}

}  // namespace hostile
