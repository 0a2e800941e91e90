#include "maintenance/tabs/record_tab.h"

#include "maintenance/frmCustMain.h"
#include "session/ModCustSch.h"

namespace orcussch {

platform::Recordset& RecordTab::Rows() const { return s.data[static_cast<std::size_t>(mTab)].Recordset(); }

platform::Recordset& RecordTab::Customer() const { return s.data[tab::Customers].Recordset(); }

bool RecordTab::Adding() const { return s.mRecordMode == "A"; }

void RecordTab::Refuse(const std::string& title, const std::string& text) const {
  App().MsgBox(text, platform::box::Information + platform::box::OkOnly, title);
}

bool RecordTab::Ask(const std::string& title, const std::string& text) const {
  return App().MsgBox(text, kYesNoQuestion, title) == platform::box::Yes;
}

bool RecordTab::Remove(ResumeNext& on, DeleteState&) {
  on([&] { Rows().Delete(); });
  return true;
}

}  // namespace orcussch
