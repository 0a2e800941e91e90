#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/controls/control.h"
#include "platform/data.h"

namespace platform {

class Grid;
class ComboBox;
class Label;
class ControlRecordset;

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

  /// Opens the statement anew: pending cells are dropped, bookmarks and selections are worthless. Without a RecordSource it
  /// has no effect. When it fails the old recordset and its list stay in use.
  void Refresh();
  /// Fetches the current row again, so that it shows what others have written since. One that is gone stays readable; a
  /// pending edit or cell stays as it is. Nothing is written, nothing fires.
  void ReadAnew();
  /// Throws away what the bound controls hold unsaved and shows the current row again.
  void UpdateControls();
  /// The live rows. Raises 91 while there was no successful Refresh.
  platform::Recordset& Recordset() const;
  bool HasRecordset() const noexcept { return recordset_ != nullptr; }
  /// Neither BOF nor EOF nor without rows; false without a recordset. Never raises.
  bool OnRecord() const;
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
  std::unique_ptr<ControlRecordset> recordset_;
  RecordsetRef listRows_;
  Grid* grid_ = nullptr;
  std::vector<ComboBox*> combos_;
  std::vector<BoundLabel> labels_;
  bool inReposition_ = false;
  int refreshCount_ = 0;
};

}  // namespace platform
