#include "maintenance/tabs/record_tab.h"

#include "maintenance/frmCustMain.h"
#include "session/ModCustSch.h"

namespace orcussch {

platform::RecordsetRef RecordTab::Rows() const { return s.data[static_cast<std::size_t>(mTab)].Recordset(); }

platform::RecordsetRef RecordTab::Customer() const { return s.data[tab::Customers].Recordset(); }

void RecordTab::UpdateCustomer(ResumeNext& on) const {
  if (!on([this] { Customer()->Update(); })) Ignore()([this] { Customer()->CancelUpdate(); });
}

bool RecordTab::Adding() const { return s.mRecordMode == "A"; }

bool RecordTab::Passes(const SaveState& state, std::initializer_list<SaveTest> tests) const {
  for (const SaveTest& test : tests) {
    if (!test.failed) continue;
    Refuse(state.Title, test.message);
    if (test.focus) test.focus->SetFocus();
    return false;
  }
  return true;
}

bool RecordTab::Find(ResumeNext& on, const platform::RecordsetRef& Table, const char* Index, const std::function<Keys()>& keys) {
  bool Found = false;
  on([&] { Table->SetIndex(Index); });
  on([&] {
    Table->Seek("=", keys());
    Found = !Table->NoMatch();
  });
  return Found;
}

void RecordTab::Write(ResumeNext& on, const platform::RecordsetRef& Table, const std::vector<CardField>& fields) {
  for (const CardField& field : fields) on([&] { Table->SetField(field.field, field.value()); });
}

void RecordTab::Refuse(const std::string& title, const std::string& text) const {
  App().MsgBox(text, platform::box::Information + platform::box::OkOnly, title);
}

bool RecordTab::Ask(const std::string& title, const std::string& text) const {
  return App().MsgBox(text, kYesNoQuestion, title) == platform::box::Yes;
}

bool RecordTab::Remove(ResumeNext& on, DeleteState&) {
  on([&] { Rows()->Delete(); });
  return true;
}

}  // namespace orcussch
