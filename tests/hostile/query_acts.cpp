#include "hostile/acts.h"
#include "robot/language/failure.h"

// What a user can do on the query screen while it works.
namespace hostile {
namespace {

/// Another criterion, or that one off again: on the tab that is up, else on the one with the lists.
void Criterion(const Desk& desk) { desk.Click(desk.CanUse("chkSelectNameAdd(4)") ? "chkSelectNameAdd(4)" : "chkSelectMisc(4)"); }
void CriterionGoes(const Desk& desk) { desk.Click(desk.CanUse("chkSelectNameAdd(0)") ? "chkSelectNameAdd(0)" : "chkSelectMisc(3)"); }

void TypeOn(const Desk& desk) { desk.Type(desk.CanUse("txtNameAdd(0)") ? "txtNameAdd(0)" : "txtSearch(0)", "E"); }

void Search(const Desk& desk) {
  desk.Type("txtSearch(0)", "S");
  desk.Key("txtSearch(0)", "Enter");
}

void Mark(const Desk& desk) { desk.MarkAll(desk.ListUp()); }
void OtherRow(const Desk& desk) { desk.LastRow(desk.ListUp()); }

void OtherTab(const Desk& desk) { desk.Tab("SSTab1", desk.CanUse("chkSelectDate(0)") ? 0 : 3); }

}  // namespace

const std::vector<Act>& QueryActs() {
  static const std::vector<Act> acts = {
      {"all", false, [](const Desk& desk) { desk.Click("chkSelectAll"); }},
      {"criterion", false, Criterion},
      {"criterion-goes", false, CriterionGoes},
      {"type", false, TypeOn},
      {"search", false, Search},
      {"mark", false, Mark},
      {"other-row", false, OtherRow},
      {"other-tab", false, OtherTab},
      {"run", false, [](const Desk& desk) { desk.Click("tb_RunQuery"); }},
      {"cancel", false, [](const Desk& desk) { desk.Click("tb_Cancel"); }},
      {"exit-frame", false, [](const Desk& desk) { desk.CloseTopByFrame(); }},
      {"exit-main", false, [](const Desk& desk) { desk.CloseMainByFrame(); }},
      {"main-goes", false, [](const Desk& desk) { desk.UnloadMain(); }},
      {"host-release", false, nullptr, true},
  };
  return acts;
}

}  // namespace hostile
