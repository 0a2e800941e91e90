#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "platform/controls/buttons.h"
#include "platform/controls/grid.h"
#include "platform/controls/label.h"
#include "records/row_write.h"
#include "session/failures.h"
#include "session/opened.h"

namespace orcussch {

class frmCustMain;

/// The list of taxes on the customer's card: a copy of all taxes in the temporary database, marked with this screen's instance, in
/// which the customer's are ticked.
class CustomerTaxes {
 public:
  explicit CustomerTaxes(frmCustMain& screen);

  /// Fills the copy anew, with the current customer's ticks or none.
  void Load(bool Customer);
  /// Builds the list; whether it ran to its end.
  bool SQL();
  /// The taxes that are ticked, from the copy itself: the list may show a part of them only. Nothing where they are not known.
  std::optional<std::vector<platform::Value>> Ticked() const;
  /// Ticks these and no others, if the copy could be loaded.
  void Tick(const std::vector<platform::Value>& taxes);
  /// The rows of a save.
  platform::RecordsetRef OpenTicked() const;
  /// Writes the ticked taxes of those rows into the customer's places, from the one behind `TaxCount` on. A customer whose ticks
  /// could not be loaded or read keeps the taxes that the table holds, unless he is new.
  void Write(RowWrite& row, const Opened& Assigned, std::int16_t TaxCount, bool Adding) const;

 private:
  using Places = std::array<platform::Value, 4>;
  void TickCustomers();
  bool ReadPlaces(ResumeNext& on, const Opened& Assigned, std::int16_t TaxCount, Places& taxes) const;
  void HeadClick(int ColIndex);
  void AfterColUpdate();

  frmCustMain& s;
  bool mLoaded = false;  ///< the list shows what the customer of the card has

 public:
  platform::Frame fraTaxBasis;
  platform::ControlArray<platform::OptionButton, 3> optTaxDisp;
  platform::Grid grdTaxBasis;
};

}  // namespace orcussch
