#include "hostile/acts.h"

#include "robot/language/failure.h"

namespace hostile {
namespace {

void RefreshKey(const Desk& desk) { desk.Click("tb_Refresh"); }
void RefreshMenu(const Desk& desk) { desk.Click("miRefresh"); }

/// A heading of the list that is to be seen, on the customer's card that of his taxes.
void Heading(const Desk& desk) {
  const std::string list = Indexed("grid", desk.UpScreen().Tab());
  desk.Head(desk.CanUse(list) ? list : "grdTaxBasis", 1);
}

/// The order that is not chosen.
void Order(const Desk& desk) {
  const std::string options = "optOrder" + std::to_string(desk.UpScreen().Tab());
  const auto* descending = dynamic_cast<platform::OptionButton*>(desk.UpScreen().Find(options, 1));
  desk.Click(Indexed(options, descending != nullptr && descending->Value() ? 0 : 1));
}

/// Another choice of what the types, the key words, the taxes of the card show.
void Filter(const Desk& desk) {
  const int tab = desk.UpScreen().Tab();
  const std::string options = tab == orcussch::tab::CustomerTypes ? "optCustTypeDisp"
                              : tab == orcussch::tab::KeyWords    ? "optKeyWordDisp"
                                                                  : "optTaxDisp";
  const auto* assigned = dynamic_cast<platform::OptionButton*>(desk.UpScreen().Find(options, 1));
  desk.Click(Indexed(options, assigned != nullptr && assigned->Value() ? 2 : 1));
}

int OtherTab(const Desk& desk) {
  return desk.UpScreen().Tab() == orcussch::tab::Customers ? orcussch::tab::CustomerTypes : orcussch::tab::Customers;
}

void TabAway(const Desk& desk) { desk.Tab(OtherTab(desk)); }

void TabForthAndBack(const Desk& desk) {
  const int here = desk.UpScreen().Tab();
  desk.Tab(OtherTab(desk));
  desk.Tab(here);
}

/// To the customer list and to another customer there.
void OtherCustomer(const Desk& desk) {
  if (desk.UpScreen().Tab() != orcussch::tab::Customers) desk.Tab(orcussch::tab::Customers);
  desk.Row("grid(0)", "LastName", "Gray");
}

void ExitMenu(const Desk& desk) { desk.Click("miExit"); }
void ExitFrame(const Desk& desk) { desk.CloseByFrame(); }
void Select(const Desk& desk) { desk.Click(desk.CanUse("tb_Select") ? "tb_Select" : "miSelect"); }

/// A new record; where a card is open already, that one is filled and saved.
void AddAndSave(const Desk& desk) {
  if (desk.UpScreen().SSIndexTab1.Page() == 0) desk.Click("miAddRec");
  desk.FillCard();
  desk.Click("miSaveRec");
}

void Add(const Desk& desk) { desk.Click("miAddRec"); }
void Edit(const Desk& desk) { desk.Click("miEditRec"); }
void Cancel(const Desk& desk) { desk.Click("miCancelRec"); }
void Delete(const Desk& desk) { desk.Click("miDeleteRec"); }
/// The query screen, on which the query that stands there is run.
void Query(const Desk& desk) { desk.Click("miQueries"); }

}  // namespace

const std::vector<Act>& Acts() {
  static const std::vector<Act> acts = {
      {"refresh-key", false, RefreshKey},
      {"refresh-menu", false, RefreshMenu},
      {"heading", false, Heading},
      {"order", false, Order},
      {"filter", false, Filter},
      {"tab-and-back", false, TabForthAndBack},
      {"tab-away", false, TabAway},
      {"other-customer", false, OtherCustomer},
      {"exit-menu", false, ExitMenu},
      {"exit-frame", false, ExitFrame},
      {"select", false, Select},
      {"add-and-save", true, AddAndSave},
      {"add", false, Add},
      {"edit", false, Edit},
      {"cancel", false, Cancel},
      {"delete", true, Delete},
      {"query", false, Query},
      {"host-release", false, nullptr, true},
  };
  return acts;
}

}  // namespace hostile
