#include "maintenance/frmCustMain.h"

// What a row of a list is to the user: what Enter, a double click and the row's menu do with it, and which rows stand out.
namespace orcussch {

void frmCustMain::DesignListRows() {
  for (int i = 0; i < tab::Count; ++i) {
    const bool Customers = i == tab::Customers;
    // A host that opened the screen for a customer wants one; else the user came to look after them.
    grid[static_cast<std::size_t>(i)].RowCommands(
        {{"Select", &tb("tb_Select"), Customers}, {"Edit", &tb("tb_EditRec"), true}, {"Delete", &tb("tb_DeleteRec")}});
  }
  grid[tab::Customers].ChoosesRows(true);

  const auto OfCustomer = [this](const char* Field) {
    return [this, Field] {
      const platform::DataControl& customers = data[tab::Customers];
      return customers.OnRecord() ? customers.Recordset()->Field(Field) : platform::Value(platform::Null);
    };
  };
  grid[tab::Phones].Emphasize("RecordID", {{"Default Phone Number", OfCustomer("DefaultPhoneNumber")}});
  grid[tab::Addresses].Emphasize("AddressID", {{"Default Shipping Address", OfCustomer("DefaultShipAddress")},
                                               {"Default Billing Address", OfCustomer("DefaultBillAddress")}});
  grid[tab::CreditCards].Emphasize("CreditCardID", {{"Default Credit Card", OfCustomer("DefaultCreditCard")}});
}

}  // namespace orcussch
