#pragma once

#include <cstdint>
#include <string>

#include "platform/controls/buttons.h"
#include "platform/controls/data_control.h"
#include "platform/controls/grid.h"
#include "platform/controls/label.h"
#include "platform/controls/text_box.h"
#include "platform/controls/toolbar.h"
#include "platform/host/screen.h"
#include "platform/host/screen_ref.h"

namespace orcussch {

/// The customers who are parents of others and, for the one that is current there, his children (table SuperCustomers). It only
/// looks: the links are kept in another module. Of each pair of controls 1 is the parents' and 0 the children's.
class frmChildParentCustomers final : public platform::Screen {
 public:
  template <class T>
  using Pair = platform::ControlArray<T, 2>;

  explicit frmChildParentCustomers(platform::Application& application);
  void Form_Load() override;
  void Form_Unload() override;

  /// Opens one of the lists anew: all parents, or the children of `AcctNum`.
  void SQLCustomers(std::int32_t AcctNum, int Index);
  /// Finds the next parent that begins with the search text in the field of the search frame.
  void SearchRecord(const platform::RecordsetRef& rows);

  platform::Frame fraSearch;
  platform::Label lblSearch;
  platform::TextBox txtSearch;
  platform::Frame fraOrder;
  Pair<platform::OptionButton> optOrder;
  Pair<platform::DataControl> DataCustomers;
  Pair<platform::Frame> fraCustomers;
  Pair<platform::Label> lblCurrentCustomer;
  Pair<platform::Grid> grdCustomers;
  platform::StatusBar StatusBar1;

 private:
  std::string Statement(std::int32_t AcctNum, int Index) const;
  std::int32_t CurrentParent() const;
  void OrderParentsBy(int ColIndex);
  void DataCustomers_Reposition(int Index);
  void grdCustomers_HeadClick(int Index, int ColIndex);
  void SortParents(int ColIndex, bool descending);
  void optOrder_Click(int Index);
};

namespace screens {
extern platform::ScreenRef<orcussch::frmChildParentCustomers> frmChildParentCustomers;
}  // namespace screens

}  // namespace orcussch
