#include "setup/setup_screen.h"

#include <utility>

#include "records/list_search.h"
#include "session/ModCustSch.h"
#include "setup/setup_shortcuts.h"

// The frame of a setup screen: what is enabled when, its toolbar, its search and its order.
namespace orcussch {

namespace {
constexpr int kEnter = 13;
}

SetupScreen::SetupScreen(platform::Application& application, const char* name, const char* caption,
                         std::vector<platform::Toolbar::Key> keys)
    : Screen(application, name, caption), Toolbar1(*this, "Toolbar1", std::move(keys)) {
  Shortcuts(kSetupShortcuts);
  Toolbar1.ButtonClick = [this](const std::string& Key) { Toolbar1_ButtonClick(Key); };
}

std::vector<platform::Toolbar::Key> SetupScreen::Keys(std::vector<platform::Toolbar::Key> first) {
  const bool own = !first.empty();
  for (platform::Toolbar::Key key : std::initializer_list<platform::Toolbar::Key>{{"tb_AddRec", "Add New Record", own},
                                                                                  {"tb_EditRec", "Edit Record"},
                                                                                  {"tb_DeleteRec", "Delete Record"},
                                                                                  {"tb_SaveRec", "Save Record", true},
                                                                                  {"tb_CancelRec", "Cancel Saving Record"},
                                                                                  {"tb_Refresh", "Refresh", true},
                                                                                  {"tb_Search", "Search"}})
    first.push_back(std::move(key));
  return first;
}

void SetupScreen::Attach(SetupRecord& record) {
  SetupList& list = record.list;
  list.txtSearch.Change = [this, &record] { txtSearch_Change(record); };
  list.txtSearch.KeyPress = [this, &record](int& KeyAscii) {
    if (KeyAscii == kEnter && !record.list.txtSearch.Text().empty()) SearchRecord();
  };
  list.optOrder.Each([this, &record](platform::OptionButton& option, int) {
    option.Click = [this, &record] {
      if (record.list.HasRows()) OpenList(record);
    };
  });
  list.grid.RowCommands({{"Edit", &tb("tb_EditRec"), true}, {"Delete", &tb("tb_DeleteRec")}});
}

void SetupScreen::OrdersByHeading(SetupRecord& record) {
  record.list.grid.HeadClick = [this, &record](int column) {
    record.list.OrderByColumn(column);
    if (record.list.HasRows()) OpenList(record);
  };
  // As a click on the heading and one on the option, with one rebuild.
  record.list.grid.Sort = [this, &record](int column, bool descending) {
    record.list.OrderByColumn(column);
    platform::OptionButton& direction = record.list.optOrder[descending ? 1 : 0];
    if (!direction.Value())
      direction.Value(true);
    else if (record.list.HasRows())
      OpenList(record);
  };
}

void SetupScreen::TestsCells(SetupRecord& record, std::string title) {
  record.list.grid.BeforeColUpdate = [this, &record, title = std::move(title)](int column, const platform::Value& OldValue, bool& Cancel) {
    const std::string refused = record.RefusesCell(column, record.list.grid.ColumnValue(column));
    if (refused.empty()) return;
    Tell(refused, title);
    Cancel = true;
    record.list.grid.ColumnValue(column, OldValue);
  };
}

void SetupScreen::EditingRecords(bool editing) {
  SetupRecord& record = CurrentRecord();
  const bool rows = record.list.HasRows();
  tb("tb_AddRec").Enabled(!editing);
  for (const char* key : {"tb_EditRec", "tb_DeleteRec"}) tb(key).Enabled(rows && !editing);
  for (const char* key : {"tb_SaveRec", "tb_CancelRec"}) tb(key).Enabled(editing);
  record.list.Enable(!editing);
  CloseButton().Enabled(!editing);
  ShowCard(editing);
}

void SetupScreen::TestRecordcount() {
  const bool rows = CurrentRecord().list.HasRows();
  for (const char* key : {"tb_EditRec", "tb_DeleteRec"}) tb(key).Enabled(rows);
}

void SetupScreen::Toolbar1_ButtonClick(const std::string& Key) {
  Toolbar1.Enabled(false);
  RunCommand(Key);
  if (Loaded()) Toolbar1.Enabled(true);
}

void SetupScreen::RunCommand(const std::string& Key) {
  if (Key == "tb_AddRec") return RecordAdd();
  if (Key == "tb_EditRec") return RecordEdit();
  if (Key == "tb_DeleteRec") return RecordDelete();
  if (Key == "tb_SaveRec") return RecordSave();
  if (Key == "tb_CancelRec") return RecordCancel();
  if (Key == "tb_Refresh") return CurrentRecord().list.Reload();
  if (Key == "tb_Search") return SearchRecord();
  RunOwnKey(Key);
}

void SetupScreen::txtSearch_Change(SetupRecord& record) {
  record.list.fraSearch.Caption(kSearchFirst);
  tb("tb_Search").Enabled(!record.list.txtSearch.Text().empty());
}

void SetupScreen::SearchRecord() {
  SetupRecord& record = CurrentRecord();
  SetupList& list = record.list;
  if (list.txtSearch.Text().empty()) return;
  SearchList(App(), list.data.Recordset(), {list.fraSearch.Tag(), list.fraSearch, list.lblSearch, list.txtSearch},
             FixQuotes(list.txtSearch.Text()), record.SearchTitle());
}

void SetupScreen::Tell(const std::string& text, const std::string& title) const {
  App().MsgBox(text, platform::box::Information + platform::box::OkOnly, title);
}

}  // namespace orcussch
