#pragma once

#include <optional>
#include <string>

#include "maintenance/record_tab.h"

namespace orcussch {

/// Where a tick of an assignment list is kept, and the entry's own table.
struct AssignmentTables {
  platform::RecordsetRef& assigned;
  const char* assignedIndex;
  const char* assignedField;
  platform::RecordsetRef& entries;
  const char* entryField;
};

/// How an assignment list is filled and shown.
struct AssignmentDesign {
  const char* display;    ///< the options that choose what it shows
  const char* listTable;  ///< the work table, as the list's statement names it
  const char* workTable;  ///< as the load's statements do
  const char* columns;    ///< of the work table, behind Instance and Assign
  const char* literal;    ///< of the load
  const char* assigned;   ///< the columns and the tables that give the customer's own; his account and a parenthesis follow
  const char* all;        ///< those that give all
  AssignmentTables tables;
};

/// A list of all entries there are, with a check column: a copy in the temporary database, marked with this screen's instance, in
/// which the current customer's entries are ticked.
class AssignmentTab : public RecordTab {
 public:
  std::string Statement(std::int32_t Acct) override;
  void Visit(const std::string& Caption) override;
  TickList Ticks() override;
  void CellTaken(int ColIndex) override;

  /// While the copy is being filled its rows may say what was before.
  bool ListIsCurrent() const override { return !mFilling; }

  /// Fills the copy anew, for the current customer. A failure is reported and the list shows what got in.
  void Load();

 protected:
  AssignmentTab(frmCustMain& screen, int tab, const char* key, TabDesign design, const AssignmentDesign& assignment);
  /// The copy and its list, after the entries themselves have changed.
  void LoadAnew(ResumeNext& on);

 private:
  void Assign();
  void Rename();
  void CaptionByFilter();

  AssignmentDesign mAssignment;
  Array<platform::OptionButton, 3> optDisplay;
  /// The customer for whom the list was filled last; nothing while there was none.
  std::optional<std::int32_t> mFilledFor;
  bool mFilling = false;
};

/// Fills the list of an assignment tab anew.
void LoadEntries(const frmCustMain& screen, int Tab);

}  // namespace orcussch
