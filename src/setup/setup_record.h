#pragma once

#include <algorithm>
#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/controls/form/control.h"
#include "setup/setup_list.h"

namespace orcussch {

/// What the screen says of a kind of record.
struct SetupTexts {
  const char* name;         ///< ends the question of a cancel: "Phone Type?"
  const char* deleteTitle;  ///< of the boxes of a deletion
  const char* deleting;     ///< status panel
  const char* saving;       ///< status panel; "": a save shows no wait
};

/// What the user is told or asked before a row is deleted.
struct SetupDeletion {
  bool barred;           ///< the box informs only, nothing is deleted
  std::string text;      ///< of the box
  std::string position;  ///< criterion that finds the deleted row's successor
};

/// One table of a setup screen: its list, its card, and what is its own in the screen's procedures. A statement that fails leaves
/// the procedure, which reports it.
class SetupRecord {
 public:
  SetupRecord(platform::Form& screen, SetupListDesign design) : list(screen, std::move(design)) {}
  virtual ~SetupRecord() = default;
  SetupRecord(const SetupRecord&) = delete;
  SetupRecord& operator=(const SetupRecord&) = delete;

  virtual const SetupTexts& Texts() const = 0;
  /// Of the box of a search without a hit.
  virtual std::string SearchTitle() const = 0;
  /// Style of the question before a deletion.
  virtual int DeleteStyle() const = 0;
  /// Gets the focus when the card opens.
  virtual platform::Control& FirstField() = 0;
  /// Makes the card ready for a new record. False: the user was told why there is none.
  virtual bool Add() = 0;
  /// Loads the current row into the card. False: the user was told why not.
  virtual bool Edit() = 0;
  /// The tests of a save; the first that fails is told.
  virtual bool Complete() = 0;
  /// Writes a new row, or that of the list's current row. The criterion that finds it again; nothing: it can't be written, which
  /// the user was told.
  virtual std::optional<std::string> Write(bool adding) = 0;
  /// The list is open again and stands on a saved row.
  virtual void Saved() {}
  virtual SetupDeletion Deletion() = 0;
  /// What refuses a cell's new value; "" when it may be taken.
  virtual std::string RefusesCell(int, const platform::Value&) { return ""; }
  /// Finds the row of a position text; when there is none the list goes to its last row.
  virtual void StandOn(const std::string& position);

  SetupList list;

 protected:
  platform::RecordsetRef Rows() const { return list.data.Recordset(); }
};

/// Whether the code is one of those that the program itself knows, to the letter.
inline bool IsOneOf(const std::string& code, std::span<const std::string_view> builtIn) {
  return std::find(builtIn.begin(), builtIn.end(), code) != builtIn.end();
}

/// Whether the table has a row with those keys in the index, which stays set; it then stands on it.
bool HasRow(const platform::RecordsetRef& table, const char* index, std::initializer_list<platform::Value> keys);

/// Goes to the row of a position text; when there is none to the last row. Raises 3021 in an empty list.
void FindOrGoLast(const platform::RecordsetRef& rows, const std::string& position);

/// Begins the edit of a table's row. False: there is none with that key.
bool EditRow(const platform::RecordsetRef& table, const char* index, const platform::Value& key);

}  // namespace orcussch
