#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/form/control.h"
#include "platform/values/value.h"

namespace platform {

class DataControl;

/// One column of a combo's list.
struct ComboColumn {
  std::string field;
  std::string caption;
  std::string numberFormat;
};

/// One row of a combo's list: the key and the texts of its columns (the first one is shown in the edit part).
struct ComboRow {
  Value key;
  std::string shown;
  std::vector<std::string> cells;
};

/// A combo with two parts: the bound value (the key) and the shown text. Its list comes from a data control or is fixed. By
/// the user and in code: Change when a part really changes. Reloading the list keeps both parts and fires nothing.
class ComboBox final : public Control {
 public:
  ComboBox(Form& form, std::string name);
  ComboBox(Form& form, std::string name, int index);

  /// The list's source: rows of `source`, the key from `boundField`, the shown text from `listField`.
  void FillFrom(DataControl& source, std::string boundField, std::string listField, std::vector<ComboColumn> columns);
  /// A fixed list.
  void Fill(std::vector<ComboRow> rows);

  const Value& BoundValue() const noexcept { return bound_; }
  void BoundValue(Value value);
  const std::string& Text() const noexcept { return text_; }
  void Text(std::string text);
  const std::vector<ComboColumn>& Columns() const noexcept { return columns_; }
  void ColumnCaption(int column, std::string caption);
  /// The list, read anew from its source at each call; a source that can't be read gives no rows.
  std::vector<ComboRow> Rows() const;
  bool TakesFocus() const override { return true; }

  Event<> Change;

  /// The user chooses a row, or empties the combo.
  void UserPick(const ComboRow& row);
  void UserClear();
  /// The user types a text; a row whose shown text is equal (case does not count) is chosen, else the bound part is emptied.
  void UserType(std::string_view text);
  /// The source was refreshed: the front end shows the new list at the next opening.
  void SourceRefreshed() { Changed(Aspect::List); }

 private:
  void Take(Value bound, std::string text);
  DataControl* source_ = nullptr;
  std::string boundField_;
  std::string listField_;
  std::vector<ComboColumn> columns_;
  std::vector<ComboRow> fixed_;
  Value bound_ = "";
  std::string text_;
};

}  // namespace platform
