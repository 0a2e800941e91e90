#include "hostile/acts.h"
#include "robot/language/failure.h"

// What a user can do on a setup screen that waits.
namespace hostile {
namespace {

void Heading(const Desk& desk) { desk.Head(desk.ListUp(), 1); }

/// The order that is not chosen.
void Order(const Desk& desk) { desk.Click(desk.IsOn("optOrder(1)") ? "optOrder(0)" : "optOrder(1)"); }

void Search(const Desk& desk) {
  desk.Type("txtSearch", "F");
  desk.Key("txtSearch", "Enter");
}

void OtherRow(const Desk& desk) { desk.LastRow(desk.ListUp()); }
void Cell(const Desk& desk) { desk.Cell(desk.ListUp(), 1, "Renamed"); }

/// Types into the card that is open.
void TypeOn(const Desk& desk) {
  for (const char* entry : {"txtPhone", "txtCreditCardName", "txtMapCode"})
    if (desk.CanUse(entry)) return desk.Type(entry, "Typed late");
  throw robot::Refused("no card is open");
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
