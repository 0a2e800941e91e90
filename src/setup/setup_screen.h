#pragma once

#include <string>
#include <vector>

#include "platform/controls/buttons.h"
#include "platform/controls/label.h"
#include "platform/controls/toolbar.h"
#include "platform/host/screen.h"
#include "records/record_operations.h"
#include "setup/setup_record.h"

namespace orcussch {

/// The frame of a setup screen: one list, or one a tab, and in its place the card of one record. What the tables have of their own
/// stands in their SetupRecord, what the screen shows and hides in the calls below.
///
/// A failure leaves its procedure at once, with the pointer, the wait text and the mode as they were then.
class SetupScreen : public platform::Screen {
 public:
  void RecordAdd();
  void RecordEdit();
  void RecordSave();
  void RecordCancel();
  void RecordDelete();

  /// Switches between list and card.
  void EditingRecords(bool editing);
  /// Enables what needs a row.
  virtual void TestRecordcount();
  /// Finds the next row of the list at hand that begins with the search text.
  void SearchRecord();

  std::string EditMode;  ///< "A" adding, "E" editing; without a meaning in the list

  platform::Toolbar Toolbar1;

 protected:
  SetupScreen(platform::Application& application, const char* name, const char* caption, std::vector<platform::Toolbar::Key> keys);
  /// The keys that every setup screen has, behind those of its own.
  static std::vector<platform::Toolbar::Key> Keys(std::vector<platform::Toolbar::Key> first = {});

  /// The table whose list is shown.
  virtual SetupRecord& CurrentRecord() = 0;
  virtual RecordLiterals Literals() const = 0;
  /// Opens a table's list in its order.
  virtual void OpenList(SetupRecord& record) = 0;
  /// Shows the card or the list, and opens and closes what else goes with it.
  virtual void ShowCard(bool editing) = 0;
  /// Turns the list's page up, or the card's.
  virtual void TurnTo(bool) {}
  virtual platform::CommandButton& CloseButton() = 0;
  virtual platform::StatusBar& Hints() = 0;
  /// A toolbar key of the screen's own.
  virtual void RunOwnKey(const std::string&) {}

  /// Joins a table's list to the screen: its search, and its order.
  void Attach(SetupRecord& record);
  /// A click on a heading searches and orders by that column.
  void OrdersByHeading(SetupRecord& record);
  /// Tests cells before they are taken; `title` is the box's.
  void TestsCells(SetupRecord& record, std::string title);
  platform::ToolbarButton& tb(const char* Key) const { return Toolbar1.Button(Key); }
  void Tell(const std::string& text, const std::string& title) const;

 private:
  void OpenCard(SetupRecord& record, const char* mode);
  void ShowSaved(SetupRecord& record, const std::string& position);
  void Wait(const std::string& text);
  void EndWait();
  void Toolbar1_ButtonClick(const std::string& Key);
  void RunCommand(const std::string& Key);
  void txtSearch_Change(SetupRecord& record);
};

}  // namespace orcussch
