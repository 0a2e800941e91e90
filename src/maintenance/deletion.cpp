#include "maintenance/frmCustMain.h"
#include "maintenance/tabs/fields.h"
#include "maintenance/tabs/record_tab.h"
#include "session/ModCustSch.h"

// Removing the current row of the current tab.
namespace orcussch {

void frmCustMain::RecordDelete() {
  ResumeNext on("frmCustMain.RecordDelete");
  const auto n = static_cast<std::size_t>(Tab());
  orcussch::App().MousePointer(platform::pointer::Hourglass);
  orcussch::App().DoEvents();

  // Without rows, and after No, the hourglass stays until the next operation sets the pointer back.
  bool Records = false;
  on([&] { Records = data[n].Recordset()->HasRows(); });
  if (!Records) return;
  DeleteState state;
  state.Title = "Delete " + RecordLabel();
  if (orcussch::App().MsgBox("Are you sure you delete the current " + RecordLabel() + "?", kYesNoQuestion, state.Title) !=
      platform::box::Yes)
    return;

  mToolbarReady = false;
  orcussch::App().MousePointer(platform::pointer::Hourglass);
  StatusBar1.Panel(1, "Delete " + RecordLabel() + ", please wait!");
  if (CurrentRecord().MayDelete(on, state) && CurrentRecord().Remove(on, state)) {
    RepairDefaults(on, state);
    orcussch::App().DoEvents();
    StandOn(on, state.Position);
    TestRecordcount();
  }
  StatusBar1.Panel(1, "");
  EndWork();
}

/// Default fields of the customer that pointed at the deleted row.
void frmCustMain::RepairDefaults(ResumeNext& on, const DeleteState& state) {
  if (!state.Repairs[0].Wanted && !state.Repairs[1].Wanted) return;
  bool Records = false;
  on([&] { Records = HasRecords(data[tab::Customers]); });
  if (!Records) return;
  const platform::RecordsetRef Customer = data[tab::Customers].Recordset();
  RowWrite row(on);
  row.Must([&] { Customer->Edit(); });
  for (const DeleteState::Repair& repair : state.Repairs)
    if (repair.Wanted) row([&] { Customer->SetField(repair.Field, std::int32_t{0}); });
  if (row.Going()) UpdateOrDrop(on, Customer);
}

}  // namespace orcussch
