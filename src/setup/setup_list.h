#pragma once

#include <string>

#include "platform/controls/buttons.h"
#include "platform/controls/data_control.h"
#include "platform/controls/form/form.h"
#include "platform/controls/grid.h"
#include "platform/controls/label.h"
#include "platform/controls/text_box.h"

namespace orcussch {

/// What the design of a setup screen fixes of one of its lists.
struct SetupListDesign {
  const char* data;     ///< name of the data control
  const char* grid;     ///< name of the grid
  const char* options;  ///< name of the option pair that orders the list
  int index = -1;       ///< place of its controls in their arrays; -1 on a screen with one list
  const char* field;    ///< first searched and ordered by; a click on a heading changes it
  const char* prompt;   ///< what that field is called
  std::string caption;  ///< of the grid
  std::vector<platform::GridColumn> columns;
};

/// The list of a setup table with the boxes that search and order it.
class SetupList {
 public:
  SetupList(platform::Form& screen, SetupListDesign design);

  bool HasRows() const;
  /// The order as the statement's end has it.
  std::string OrderBy() const;
  /// Makes the statement the list's source and opens it.
  void Open(const std::string& statement);
  /// Opens the rows anew.
  void Reload();
  /// Searched and ordered by that column from the next opening on.
  void OrderByColumn(int column);
  /// The user can't use it while a card is open.
  void Enable(bool enabled);

  platform::DataControl data;
  platform::Frame fraSearch;
  platform::Label lblSearch;
  platform::TextBox txtSearch;
  platform::Frame fraOrder;
  platform::ControlArray<platform::OptionButton, 2> optOrder;
  platform::Grid grid;

 private:
  void NameField(const std::string& field, const std::string& caption);
};

}  // namespace orcussch
