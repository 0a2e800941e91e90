#include "maintenance/frmCustMain.h"
#include "platform/values/convert.h"

// What the record operations say on this screen.
namespace orcussch {

std::string frmCustMain::RecordLabel() const {
  const std::string Caption = TrimmedCaption(*this, Tab());
  return platform::Left(Caption, platform::Len(Caption) - 1) + " Record";
}

RecordLiterals frmCustMain::Literals() const {
  // The save reports under the add's literal, as the log is searched for both under one name.
  return {.Add = "frmCustMain.RecordAdd",
          .Edit = "frmCustMain.RecordEdit",
          .Save = "frmCustMain.RecordAdd",
          .Cancel = "frmCustMain.RecordCancel",
          .Delete = "frmCustMain.RecordDelete"};
}

RecordTexts frmCustMain::Texts() const {
  const std::string Label = RecordLabel();
  const bool Editing = mRecordMode == "E";
  // The blanks are kept as they come, two of them in a row.
  return {
      .SaveTitle = "Delete " + Label,
      .Saving = "Saving" + Label + ", please wait!",
      .CancelTitle = Editing ? "Edit" : "Add New",
      .CancelQuestion = std::string("Are you sure you want to cancel saving ") + (Editing ? " changes to " : "") + " the " + Label + "?",
      .DeleteTitle = "Delete " + Label,
      .DeleteQuestion = "Are you sure you delete the current " + Label + "?",
      .Deleting = "Delete " + Label + ", please wait!"};
}

}  // namespace orcussch
