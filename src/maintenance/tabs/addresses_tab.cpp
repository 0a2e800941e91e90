#include "maintenance/frmCustMain.h"
#include "records/card_fields.h"
#include "records/columns.h"
#include "records/fields.h"
#include "session/ModCustSch.h"

namespace orcussch {

using namespace column;
using platform::Value;

namespace {

constexpr std::int16_t kMonths = 12;
constexpr const char* kMonthNames[kMonths + 1] = {"[All Months]", "January", "February",  "March",   "April",    "May",     "June",
                                                  "July",         "August",  "September", "October", "November", "December"};

TabDesign TheTab() {
  return {.caption = "  Alternate Address  ",
          .record = "address",
          .field = "Addr1",
          .ascending = "Ascending Address 1",
          .descending = "Descending Address 1",
          .prompt = "Address 1",
          .database = &gCustomerPath,
          .columns =
              {
                  Closed(Plain("Address ID", "AddressID")),
                  Closed(Plain("AcctNum", "Customer")),
                  Plain("Address 1", "Addr1"),
                  Plain("Address 2", "Addr2"),
                  Plain("City", "City"),
                  Plain("State", "State"),
                  Plain("Zip", "Zip"),
                  Plain("Country", "Country"),
                  Plain("Active Month Low", "ActiveMonthLow"),
                  Plain("Active Month High", "ActiveMonthHigh"),
                  Plain("Comment", "Comment"),
              },
          .defaultRows = {{"DefaultShipAddress", "Default Shipping Address"}, {"DefaultBillAddress", "Default Billing Address"}},
          .billableOnly = true};
}

class AddressesTab final : public RecordTab {
 public:
  explicit AddressesTab(frmCustMain& screen) : RecordTab(screen, tab::Addresses, "AddressID", TheTab()) {
    CardBeginsWith(lblAltAddressID);
    chkDefaultAddr[0].Caption("Default Shipping Address");
    chkDefaultAddr[1].Caption("Default Billing Address");
    std::vector<platform::ComboRow> months;
    for (std::int16_t month = 0; month <= kMonths; ++month) months.push_back({month, kMonthNames[month], {kMonthNames[month]}});
    cboActiveMonth.Each([&](platform::ComboBox& combo, int) { combo.Fill(months); });
  }

  std::string Statement(std::int32_t Acct) override {
    return "Select * From Addresses"
           " WHERE (Customer=" +
           std::to_string(Acct) + ")";
  }

  platform::Control& FirstField() override { return txtAltAddr1; }

  bool Add(ResumeNext& on) override {
    mFields.Clear(on);
    chkDefaultAddr[0].Value(0);
    chkDefaultAddr[1].Value(0);
    return true;
  }

  void Edit(ResumeNext& on) override {
    mFields.Load(on, Rows());
    // A check means that this save makes the address a default; whether it is one now is never shown.
    chkDefaultAddr[0].Value(0);
    chkDefaultAddr[1].Value(0);
  }

  bool Save(ResumeNext& on, SaveState& state) override {
    if (!Valid(state)) return false;
    RowWrite row(on);
    if (Adding()) {
      row.Must([] { rsAddresses->AddNew(); });
      row([&] { rsAddresses->SetField("Customer", Owner()); });
    } else if (!BeginEdit(row, rsAddresses, state, kGone)) {
      return false;
    }
    mFields.Write(row, rsAddresses);
    Store(row, rsAddresses, state);
    WriteDefaults(row);
    return true;
  }

  bool MayDelete(ResumeNext& on, DeleteState& state) override {
    const std::int32_t id = NumberToDelete(on, state);
    if (IsDefault(on, "DefaultShipAddress", id)) state.Repairs[0] = {true, "DefaultShipAddress"};
    // The shipping field too: the suite's billing keeps the number of the deleted address until someone chooses another.
    if (IsDefault(on, "DefaultBillAddress", id)) state.Repairs[1] = {true, "DefaultShipAddress"};
    return true;
  }

 private:
  static constexpr GoneText kGone{"The edited alternate address can no longer be found (Address ID ",
                                  ").  The alternate address changes made can not be saved!"};

  static void ShowMonth(platform::ComboBox& combo, std::int16_t month) {
    SetCombo(combo, month, combo.Rows()[static_cast<std::size_t>(month)].shown);
  }

  /// An empty month counts as 0, all year. `clear` is what a new address begins with.
  static CardField Month(const char* field, platform::ComboBox& combo, void (*clear)(platform::ComboBox&)) {
    return {field, [&combo, clear](ResumeNext&) { clear(combo); },
            [&combo, field](ResumeNext& on, const platform::RecordsetRef& row) {
              on([&] {
                const Value stored = row->Field(field);
                const std::int16_t month = stored.IsNull() ? std::int16_t{0} : platform::CInt(stored);
                ShowMonth(combo, month > 0 && month <= kMonths ? month : std::int16_t{0});
              });
            },
            [&combo] {
              const double month = platform::Val(BoundText(combo));
              return Value(month >= 0 && month <= kMonths ? static_cast<std::int16_t>(month) : std::int16_t{0});
            }};
  }

  bool Valid(const SaveState& state) const {
    if (chkDefaultAddr[0].Value() == 0 && chkDefaultAddr[1].Value() == 0) return true;
    return Passes(state, {
                             {txtAltAddr1.Text().empty(), "When entering a default address you must enter a Address 1!"},
                             {txtAltCity.Text().empty(), "When entering a default address you must enter a City!"},
                             {txtAltState.Text().empty(), "When entering a default address you must enter a State!"},
                             {txtAltZip.Text().empty(), "When entering a default address you must enter a Zip Code!"},
                         });
  }

  void WriteDefaults(const RowWrite& row) const {
    const bool ship = chkDefaultAddr[0].Value() != 0;
    const bool bill = chkDefaultAddr[1].Value() != 0;
    if (ship && bill)
      MakeDefault(row, rsAddresses, {"DefaultShipAddress", "DefaultBillAddress"});
    else if (ship)
      MakeDefault(row, rsAddresses, {"DefaultShipAddress"});
    else if (bill)
      MakeDefault(row, rsAddresses, {"DefaultBillAddress"});
  }

  platform::Label lblAltAddressID{s, "lblAltAddressID"};
  platform::TextBox txtAltAddr1{s, "txtAltAddr1", 30};
  platform::TextBox txtAltAddr2{s, "txtAltAddr2", 30};
  platform::TextBox txtAltCity{s, "txtAltCity", 25};
  platform::TextBox txtAltState{s, "txtAltState", 2};
  platform::TextBox txtAltZip{s, "txtAltZip", 10};
  platform::TextBox txtAltCountry{s, "txtAltCountry", 30};
  Array<platform::ComboBox, 2> cboActiveMonth{s, "cboActiveMonth"};
  platform::TextBox txtAltComment{s, "txtAltComment", 30};
  Array<platform::CheckBox, 2> chkDefaultAddr{s, "chkDefaultAddr"};

  // No guard against Null in the lines: such a line is reported, and its edit keeps what it showed.
  CardFields mFields{
      card::Shown("AddressID", lblAltAddressID),
      card::TextNotNull("Addr1", txtAltAddr1),
      card::TextNotNull("Addr2", txtAltAddr2),
      card::TextNotNull("City", txtAltCity),
      card::TextNotNull("State", txtAltState),
      card::TextNotNull("Zip", txtAltZip),
      card::TextNotNull("Country", txtAltCountry),
      card::Text("Comment", txtAltComment),
      Month("ActiveMonthLow", cboActiveMonth[0], [](platform::ComboBox& combo) { ShowMonth(combo, 0); }),
      // A new address starts with a blank end month, not with all months.
      Month("ActiveMonthHigh", cboActiveMonth[1], EmptyCombo),
  };
};

}  // namespace

std::unique_ptr<RecordTab> MakeAddressesTab(frmCustMain& screen) { return std::make_unique<AddressesTab>(screen); }

}  // namespace orcussch
