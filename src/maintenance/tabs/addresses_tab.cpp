#include "maintenance/frmCustMain.h"
#include "maintenance/tabs/fields.h"
#include "maintenance/tabs/record_tab.h"
#include "session/ModCustSch.h"

namespace orcussch {

using platform::Value;

namespace {

constexpr std::int16_t kMonths = 12;

class AddressesTab final : public RecordTab {
 public:
  explicit AddressesTab(frmCustMain& screen)
      : RecordTab(screen, tab::Addresses, "addressID"),
        mTexts{{{"Addr1", &s.txtAltAddr1},
                {"Addr2", &s.txtAltAddr2},
                {"City", &s.txtAltCity},
                {"State", &s.txtAltState},
                {"Zip", &s.txtAltZip},
                {"Country", &s.txtAltCountry}}},
        mFields{From("Addr1", s.txtAltAddr1),
                From("Addr2", s.txtAltAddr2),
                From("City", s.txtAltCity),
                From("State", s.txtAltState),
                From("Zip", s.txtAltZip),
                From("Country", s.txtAltCountry),
                From("Comment", s.txtAltComment),
                {"ActiveMonthLow", [this] { return Value(MonthOf(0)); }},
                {"ActiveMonthHigh", [this] { return Value(MonthOf(1)); }}} {}

  bool Add(ResumeNext&) override {
    s.lblAltAddressID.Caption("");
    for (const TextField& text : mTexts) text.edit->Text("");
    s.chkDefaultAddr[0].Value(0);
    s.chkDefaultAddr[1].Value(0);
    s.txtAltComment.Text("");
    ShowMonth(0, 0);
    // A new address starts with a blank end month, not with all months.
    EmptyCombo(s.cboActiveMonth[1]);
    return true;
  }

  void Edit(ResumeNext& on) override {
    on([&] { s.lblAltAddressID.Caption(TextUnguarded(Rows(), "addressID")); });
    // No guard against Null here: such a line is reported, and its edit keeps what it showed.
    for (const TextField& text : mTexts) on([&] { text.edit->Text(TextUnguarded(Rows(), text.field)); });
    LoadMonth(on, 0, "ActiveMonthLow");
    LoadMonth(on, 1, "ActiveMonthHigh");
    // A check means that this save makes the address a default; whether it is one now is never shown.
    s.chkDefaultAddr[0].Value(0);
    s.chkDefaultAddr[1].Value(0);
    on([&] { s.txtAltComment.Text(TextOf(Rows(), "Comment")); });
  }

  bool Save(ResumeNext& on, SaveState& state) override {
    if (!Valid(state)) return false;
    RowWrite row(on);
    if (Adding()) {
      row.Must([] { rsAddresses->AddNew(); });
      row([&] { rsAddresses->SetField("Customer", Owner()); });
    } else if (!BeginEdit(row, rsAddresses, "AddressID", state, kGone)) {
      return false;
    }
    Write(row, rsAddresses, mFields);
    Store(row, rsAddresses, "AddressID", state);
    WriteDefaults(row);
    return true;
  }

  bool MayDelete(ResumeNext& on, DeleteState& state) override {
    std::int32_t Id = 0;
    on([&] { Id = LongOf(Rows(), "addressID"); });
    bool Ship = false;
    bool Bill = false;
    on([&] { Ship = IsNumber(Customer()->Field("DefaultShipAddress"), Id); });
    on([&] { Bill = IsNumber(Customer()->Field("DefaultBillAddress"), Id); });
    if (Ship) state.Repairs[0] = {true, "DefaultShipAddress"};
    // The shipping field too: the suite's billing keeps the number of the deleted address until someone chooses another.
    if (Bill) state.Repairs[1] = {true, "DefaultShipAddress"};
    state.Position = "[AddressID]>=" + std::to_string(Id);
    return true;
  }

 private:
  void ShowMonth(int which, std::int16_t month) {
    platform::ComboBox& combo = s.cboActiveMonth[static_cast<std::size_t>(which)];
    SetCombo(combo, month, combo.Rows()[static_cast<std::size_t>(month)].shown);
  }

  void LoadMonth(ResumeNext& on, int which, const char* field) {
    on([&] {
      const Value stored = Rows()->Field(field);
      const std::int16_t month = stored.IsNull() ? std::int16_t{0} : platform::CInt(stored);
      ShowMonth(which, month > 0 && month <= kMonths ? month : std::int16_t{0});
    });
  }

  /// An empty month counts as 0, all year.
  std::int16_t MonthOf(int which) const {
    const double month = platform::Val(BoundText(s.cboActiveMonth[static_cast<std::size_t>(which)]));
    return month >= 0 && month <= kMonths ? static_cast<std::int16_t>(month) : std::int16_t{0};
  }

  bool Valid(const SaveState& state) const {
    if (s.chkDefaultAddr[0].Value() == 0 && s.chkDefaultAddr[1].Value() == 0) return true;
    return Passes(state, {
                             {s.txtAltAddr1.Text().empty(), "When entering a default address you must enter a Address 1!"},
                             {s.txtAltCity.Text().empty(), "When entering a default address you must enter a City!"},
                             {s.txtAltState.Text().empty(), "When entering a default address you must enter a State!"},
                             {s.txtAltZip.Text().empty(), "When entering a default address you must enter a Zip Code!"},
                         });
  }

  static constexpr GoneText kGone{"The edited alternate address can no longer be found (Address ID ",
                                  ").  The alternate address changes made can not be saved!"};

  void WriteDefaults(const RowWrite& row) const {
    const bool Ship = s.chkDefaultAddr[0].Value() != 0;
    const bool Bill = s.chkDefaultAddr[1].Value() != 0;
    if (Ship && Bill)
      MakeDefault(row, rsAddresses, "AddressID", {"DefaultShipAddress", "DefaultBillAddress"});
    else if (Ship)
      MakeDefault(row, rsAddresses, "AddressID", {"DefaultShipAddress"});
    else if (Bill)
      MakeDefault(row, rsAddresses, "AddressID", {"DefaultBillAddress"});
  }

  std::array<TextField, 6> mTexts;
  std::vector<CardField> mFields;
};

}  // namespace

std::unique_ptr<RecordTab> MakeAddressesTab(frmCustMain& screen) { return std::make_unique<AddressesTab>(screen); }

}  // namespace orcussch
