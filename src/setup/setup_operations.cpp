#include "setup/setup_screen.h"

// The record operations of a setup screen. In a yield the user may leave, go to another row, or order the list anew.
namespace orcussch {

void FindOrGoLast(const platform::RecordsetRef& rows, const std::string& position) {
  rows->FindFirst(position);
  if (rows->NoMatch()) rows->MoveLast();
}

bool HasRow(const platform::RecordsetRef& table, const char* index, std::initializer_list<platform::Value> keys) {
  table->SetIndex(index);
  table->Seek("=", keys);
  return !table->NoMatch();
}

bool EditRow(const platform::RecordsetRef& table, const char* index, const platform::Value& key) {
  if (!HasRow(table, index, {key})) return false;
  table->Edit();
  return true;
}

void SetupRecord::StandOn(const std::string& position) {
  if (list.HasRows()) FindOrGoLast(Rows(), position);
}

void SetupScreen::Wait(const std::string& text) {
  if (text.empty()) return;
  App().MousePointer(platform::pointer::Hourglass);
  Hints().Panel(1, text);
  App().DoEvents();
}

void SetupScreen::EndWait() {
  App().MousePointer(platform::pointer::Default);
  Hints().Panel(1, "");
  App().DoEvents();
}

void SetupScreen::OpenCard(SetupRecord& record, const char* mode) {
  EditMode = mode;
  EditingRecords(true);
  TurnTo(true);
  record.FirstField().SetFocus();
  App().DoEvents();
}

void SetupScreen::RecordAdd() {
  Trap(Literals().Add, [this] {
    App().DoEvents();
    if (!Loaded()) return;
    SetupRecord& record = CurrentRecord();
    if (record.Add() && Loaded()) OpenCard(record, "A");
  });
}

void SetupScreen::RecordEdit() {
  Trap(Literals().Edit, [this] {
    App().DoEvents();
    if (!Loaded()) return;
    SetupRecord& record = CurrentRecord();
    if (!record.list.HasRows()) return;
    record.list.data.ReadAnew();
    if (record.Edit() && Loaded()) OpenCard(record, "E");
  });
}

void SetupScreen::RecordSave() {
  Trap(Literals().Save, [this] {
    App().DoEvents();
    if (!Loaded()) return;
    SetupRecord& record = CurrentRecord();
    if (!record.Complete()) return;
    Wait(record.Texts().saving);
    if (Loaded())
      if (const std::optional<std::string> position = record.Write(EditMode == "A")) ShowSaved(record, *position);
    EndWait();
  });
}

/// The list is opened anew and stands on the saved row.
void SetupScreen::ShowSaved(SetupRecord& record, const std::string& position) {
  Toolbar1.Enabled(false);
  EditingRecords(false);
  TurnTo(false);
  if (!Loaded()) return;
  record.list.Reload();
  record.StandOn(position);
  TestRecordcount();
  Toolbar1.Enabled(true);
  record.Saved();
  record.list.txtSearch.SetFocus();
}

void SetupScreen::RecordCancel() {
  Trap(Literals().Cancel, [this] {
    App().DoEvents();
    if (!Loaded()) return;
    SetupRecord& record = CurrentRecord();
    const bool adding = EditMode == "A";
    const std::string question =
        std::string(adding ? "Are you sure you want to cancel adding a new " : "Are you sure you want to cancel save changes to the ") +
        record.Texts().name;
    const char* title = adding ? "Cancel Saving New Record" : "Cancel Saving Record Changes";
    if (App().MsgBox(question, kYesNoQuestion, title) != platform::box::Yes || !Loaded()) return;
    EditingRecords(false);
    TurnTo(false);
    record.list.txtSearch.SetFocus();
    App().DoEvents();
  });
}

void SetupScreen::RecordDelete() {
  Trap(Literals().Delete, [this] {
    App().DoEvents();
    if (!Loaded()) return;
    SetupRecord& record = CurrentRecord();
    if (!record.list.HasRows()) return;
    const platform::RecordsetRef rows = record.list.data.Recordset();
    const platform::Bookmark row = rows->Bookmark();
    const SetupDeletion asked = record.Deletion();
    const int style = asked.barred ? platform::box::Information + platform::box::OkOnly : record.DeleteStyle();
    const int answer = App().MsgBox(asked.text, style, record.Texts().deleteTitle);
    if (asked.barred || answer == platform::box::No || !Loaded()) return;
    Wait(record.Texts().deleting);
    if (Loaded()) {
      // The row that the user was asked about; a list that was opened anew meanwhile raises.
      if (rows->Bookmark() != row) rows->SetBookmark(row);
      rows->Delete();
      if (rows->HasRows()) FindOrGoLast(rows, asked.position);
      TestRecordcount();
    }
    EndWait();
  });
}

}  // namespace orcussch
