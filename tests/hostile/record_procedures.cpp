#include "hostile/procedures.h"

// The record operations of every kind, by toolbar and by menu.
namespace hostile {
namespace {

using orcussch::tab::Count;

constexpr const char* kKinds[Count] = {"customers", "phones", "addresses", "cards", "rates", "types", "words"};

/// A command's toolbar key and its menu item: the one shuts the toolbar, the other leaves it open.
struct Way {
  const char* name;
  const char* prefix;
};
constexpr Way kWays[] = {{"key", "tb_"}, {"menu", "mi"}};

void GoTo(const Desk& desk, int tab) {
  if (tab != orcussch::tab::Customers) desk.Tab(tab);
}

/// The row that may be deleted: of types and key words one that nobody has.
void StandOnFree(const Desk& desk, int tab) {
  GoTo(desk, tab);
  if (tab == orcussch::tab::CustomerTypes) desk.Row("grid(5)", "Code", std::to_string(kFreeType));
  if (tab == orcussch::tab::KeyWords) desk.Row("grid(6)", "Keyword", kFreeWord);
}

void StandOnUsed(const Desk& desk, int tab) {
  GoTo(desk, tab);
  if (tab == orcussch::tab::CustomerTypes) desk.Row("grid(5)", "Code", "1");
  if (tab == orcussch::tab::KeyWords) desk.Row("grid(6)", "Keyword", "Sink");
}

void OpenCard(const Desk& desk, int tab, const char* command) {
  GoTo(desk, tab);
  desk.Click(command);
}

void AddKind(Procedures& all, int tab, const Way& way) {
  const std::string kind = std::string(kKinds[tab]) + "/";
  const std::string tail = std::string("/") + way.name;
  const std::string prefix = way.prefix;
  const auto click = [prefix](const char* command) { return [name = prefix + command](const Desk& desk) { desk.Click(name); }; };
  const auto add = [&](const char* name, std::function<void(const Desk&)> situation, const char* command, bool writes) {
    Procedure procedure;
    procedure.name = kind + name + tail;
    procedure.situation = std::move(situation);
    procedure.run = click(command);
    procedure.writes = writes ? tab : -1;
    all.push_back(std::move(procedure));
  };
  add(
      "add", [tab](const Desk& desk) { GoTo(desk, tab); }, "AddRec", false);
  add(
      "edit", [tab](const Desk& desk) { GoTo(desk, tab); }, "EditRec", false);
  for (const bool isNew : {true, false}) {
    const char* open = isNew ? "miAddRec" : "miEditRec";
    const auto filled = [tab, open](const Desk& desk) {
      OpenCard(desk, tab, open);
      desk.FillCard();
    };
    // The department of a rate can't be changed: its edit passes every test.
    const auto spoilt = [tab, filled, isNew](const Desk& desk) {
      filled(desk);
      if (isNew || tab != orcussch::tab::LaborRates) desk.SpoilCard();
    };
    add(isNew ? "save-new" : "save-edited", filled, "SaveRec", true);
    add(isNew ? "save-new-refused" : "save-edited-refused", spoilt, "SaveRec", true);
    add(isNew ? "cancel-new" : "cancel-edited", filled, "CancelRec", false);
  }
  add(
      "delete", [tab](const Desk& desk) { StandOnFree(desk, tab); }, "DeleteRec", true);
  if (tab == orcussch::tab::CustomerTypes || tab == orcussch::tab::KeyWords)
    add(
        "delete-refused", [tab](const Desk& desk) { StandOnUsed(desk, tab); }, "DeleteRec", true);
}

/// What only some customers or cards come to.
void AddSpecial(Procedures& all, const Way& way) {
  const std::string tail = std::string("/") + way.name;
  const std::string prefix = way.prefix;
  const auto click = [prefix](const char* command) { return [name = prefix + command](const Desk& desk) { desk.Click(name); }; };
  Procedure refused{"customers/delete-refused" + tail, [](const Desk&) {}, click("DeleteRec"), orcussch::tab::Customers};
  refused.customer = kCustomerWithTransactions;
  all.push_back(refused);

  const auto sameAddress = [](const Desk& desk) {
    desk.Click("miAddRec");
    desk.FillCard();
    desk.Type("txtAddr1", "7 Main St");
    desk.Type("txtAddr2", "Suite Gray");
    desk.Type("txtCity", "City Gray");
    desk.Type("txtState", "MN");
  };
  all.push_back({"customers/save-same-address" + tail, sameAddress, click("SaveRec"), orcussch::tab::Customers});

  // The customer gives up his departmental rates: the save asks, and deletes them one by one.
  const auto withoutRates = [](const Desk& desk) {
    desk.Click("miEditRec");
    desk.Click("optLaborRate(0)");
  };
  Procedure rates{"customers/save-deleting-rates" + tail, withoutRates, click("SaveRec"), orcussch::tab::Customers};
  rates.loop = true;
  all.push_back(rates);

  Procedure noRates{"rates/add-refused" + tail, [](const Desk& desk) { desk.Tab(orcussch::tab::LaborRates); }, click("AddRec")};
  noRates.customer = kCustomerWithoutRates;
  all.push_back(noRates);
}

}  // namespace

Procedures RecordProcedures() {
  Procedures all;
  for (const Way& way : kWays) {
    for (int tab = 0; tab < Count; ++tab) AddKind(all, tab, way);
    AddSpecial(all, way);
  }
  return all;
}

}  // namespace hostile
