#include "maintenance/frmCustMain.h"
#include "platform/values/convert.h"

// What the record operations say on this screen.
namespace orcussch {

std::string frmCustMain::RecordLabel() const {
  const std::string caption = TrimmedCaption(*this, Tab());
  return platform::Left(caption, platform::Len(caption) - 1) + " Record";
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
  const std::string label = RecordLabel();
  const bool editing = mRecordMode == "E";
  // The blanks are kept as they come, two of them in a row.
  return {
      .SaveTitle = "Delete " + label,
      .Saving = "Saving" + label + ", please wait!",
      .CancelTitle = editing ? "Edit" : "Add New",
      .CancelQuestion = std::string("Are you sure you want to cancel saving ") + (editing ? " changes to " : "") + " the " + label + "?",
      .DeleteTitle = "Delete " + label,
      .DeleteQuestion = "Are you sure you delete the current " + label + "?",
      .Deleting = "Delete " + label + ", please wait!"};
}

}  // namespace orcussch
