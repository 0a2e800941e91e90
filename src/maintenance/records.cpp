#include "maintenance/frmCustMain.h"
#include "platform/convert.h"
#include "session/ModCustSch.h"

// The frame of the record operations.
namespace orcussch {

namespace {
constexpr int kYesNo = platform::box::Question + platform::box::YesNo + platform::box::SecondButtonDefault;
}

std::string frmCustMain::RecordLabel() const {
  const std::string Caption = TrimmedCaption(*this, Tab());
  return platform::Left(Caption, platform::Len(Caption) - 1) + " Record";
}

void frmCustMain::RecordAdd() {
  mToolbarReady = false;
  orcussch::App().MousePointer(platform::pointer::Hourglass);
  orcussch::App().DoEvents();
  mRecordMode = "A";
  EditingRecord(true);
  orcussch::App().DoEvents();
  EditSetup();
  mToolbarReady = true;
  orcussch::App().MousePointer(platform::pointer::Default);
  orcussch::App().DoEvents();
}

void frmCustMain::RecordEdit() {
  ResumeNext on("frmCustMain.RecordEdit");
  bool Records = false;
  on([&] { Records = data[static_cast<std::size_t>(Tab())].Recordset().RecordCount() != 0; });
  if (!Records) return;
  mToolbarReady = false;
  orcussch::App().MousePointer(platform::pointer::Hourglass);
  orcussch::App().DoEvents();
  mRecordMode = "E";
  EditingRecord(true);
  orcussch::App().DoEvents();
  EditSetup();
  mToolbarReady = true;
  orcussch::App().MousePointer(platform::pointer::Default);
  orcussch::App().DoEvents();
}

/// The cards can't be saved yet: the screen stays in its editing state with the user's entries in place.
void frmCustMain::RecordSave() {}

void frmCustMain::RecordCancel() {
  orcussch::App().MousePointer(platform::pointer::Hourglass);
  orcussch::App().DoEvents();

  // The blanks are kept as they come, two of them in a row.
  std::string Question = "Are you sure you want to cancel saving ";
  std::string Title = "Add New";
  if (mRecordMode == "E") {
    Title = "Edit";
    Question += " changes to ";
  }
  Question += " the " + RecordLabel() + "?";

  if (orcussch::App().MsgBox(Question, kYesNo, Title) == platform::box::Yes) {
    EditingRecord(false);
    orcussch::App().DoEvents();
    SSIndexTab1.Page(0);
  }
  TestRecordcount();
  orcussch::App().MousePointer(platform::pointer::Default);
  orcussch::App().DoEvents();
}

/// The rules of deletion are not there yet: nothing is deleted.
void frmCustMain::RecordDelete() {}

}  // namespace orcussch
