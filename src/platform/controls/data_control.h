#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/controls/form/control.h"
#include "platform/data/data.h"

namespace platform {

class Grid;
class ComboBox;
class Label;
class ControlRecordset;
class TextTable;

/// Ties a list to a statement. `DatabaseName` and `RecordSource` take effect at the next Refresh.
///
/// Reposition fires after a row has become current: once for each Refresh (also of an empty list), after Move, Find with a
/// match and Bookmark; not after a failed Find, nor when a move ends on BOF or EOF.
class DataControl final : public Control {
 public:
  DataControl(Form& form, std::string name);
  DataControl(Form& form, std::string name, int index);
  ~DataControl() override;

  const std::string& DatabaseName() const noexcept { return databaseName_; }
  void DatabaseName(std::string path) { databaseName_ = std::move(path); }
  const std::string& RecordSource() const noexcept { return recordSource_; }
  void RecordSource(std::string source);

  /// Opens the statement anew: pending cells are dropped, bookmarks and selections are worthless, and a handle to the rows of
  /// before raises 3420 from now on. Without a RecordSource it has no effect. When it fails the error reaches the caller, and
  /// EmptyAfterFailure says what stands then.
  void Refresh();
  /// Shows the table's rows as they are now, in place of a statement; like a Refresh in all else.
  void Show(const TextTable& table);
  /// A list that belongs to the current row of another one: after a Refresh that failed it is empty, since the old rows would
  /// stand under another owner's name. Otherwise (the default) the old recordset and its list stay in use.
  void EmptyAfterFailure(bool empty) noexcept { emptyAfterFailure_ = empty; }
  /// Fetches the current row again, so that it shows what others have written since. One that is gone stays readable; a
  /// pending edit or cell stays as it is. Nothing is written, nothing fires.
  void ReadAnew();
  /// Throws away what the bound controls hold unsaved and shows the current row again.
  void UpdateControls();
  /// The live rows, as they were opened last: a handle that is kept over a Refresh raises 3420. Its use raises 91 while there
  /// was no successful Refresh.
  RecordsetRef Recordset() const;
  bool HasRecordset() const noexcept { return recordset_ != nullptr; }
  /// Neither BOF nor EOF nor without rows; false without a recordset. Never raises.
  bool OnRecord() const;
  /// Whether the current row is there no more, in the list or in the file. Never raises: a row that can't be looked at now may
  /// come back.
  bool RowHasGone() const;
  /// The list's own look at the rows, nullptr without a recordset.
  RowWindow* Window() const;

  Event<> Reposition;

  /// How often Refresh has opened the list, for tests and diagnosis.
  int RefreshCount() const noexcept { return refreshCount_; }

 private:
  friend class ControlRecordset;
  friend class Grid;
  friend class ComboBox;
  void Attach(Grid& grid) { grid_ = &grid; }
  void Attach(ComboBox& combo) { combos_.push_back(&combo); }
  void RowBecameCurrent();
  void RowWritten();
  void Open();
  void ShowOpened();
  void ShowNoRows();
  void TakeOwn(std::shared_ptr<platform::Recordset> rows, std::shared_ptr<platform::Recordset> listRows);
  void Take(const RecordsetRef& rows, const RecordsetRef& listRows);
  void CloseList() noexcept;

 public:
  /// A label that shows a field of the current row.
  void Bind(Label& label, std::string field);

 private:
  struct BoundLabel {
    Label* label;
    std::string field;
  };
  void ShowBoundLabels();

  std::string databaseName_;
  std::string openName_;
  std::string recordSource_;
  DatabaseRef database_;
  std::shared_ptr<ControlRecordset> recordset_;  ///< owned here alone; others hold handles
  /// Rows without a file behind them, which nobody else keeps: the current one and the list's.
  std::vector<std::shared_ptr<platform::Recordset>> ownRows_;
  RecordsetRef listRows_;
  bool emptyAfterFailure_ = false;
  Grid* grid_ = nullptr;
  std::vector<ComboBox*> combos_;
  std::vector<BoundLabel> labels_;
  bool inReposition_ = false;
  int refreshCount_ = 0;
};

}  // namespace platform
