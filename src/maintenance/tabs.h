#pragma once

#include <memory>

namespace orcussch {

class frmCustMain;
class RecordTab;

/// The tabs of the main screen, in order: their numbers and the makers of their kinds of record. A tab more is one line here, one
/// file with its kind of record in tabs/, and its pages in the form.
#define ORCUSSCH_TABS(TAB) \
  TAB(Customers)           \
  TAB(Phones)              \
  TAB(Addresses)           \
  TAB(CreditCards)         \
  TAB(LaborRates)          \
  TAB(CustomerTypes)       \
  TAB(KeyWords)

namespace tab {
#define ORCUSSCH_TAB(name) name,
enum Number : int { ORCUSSCH_TABS(ORCUSSCH_TAB) Count };
#undef ORCUSSCH_TAB
}  // namespace tab

#define ORCUSSCH_TAB(name) std::unique_ptr<RecordTab> Make##name##Tab(frmCustMain& screen);
ORCUSSCH_TABS(ORCUSSCH_TAB)
#undef ORCUSSCH_TAB

}  // namespace orcussch
