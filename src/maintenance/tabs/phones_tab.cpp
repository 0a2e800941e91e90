#include "maintenance/frmCustMain.h"
#include "records/card_fields.h"
#include "records/columns.h"
#include "records/fields.h"
#include "records/lists.h"
#include "session/ModCustSch.h"

namespace orcussch {

using namespace column;

namespace {

bool IsEmpty(const std::string& V) { return V.empty(); }

TabDesign TheTab() {
  return {.caption = "  Phones ",
          .record = "phone",
          .field = "Area",
          .ascending = "Ascending Area Code",
          .descending = "Descending Area Code",
          .prompt = "Area Code",
          .searchMask = "(%%%)",
          .database = &gCustomerPath,
          .columns =
              {
                  Closed(Plain("Record ID", "RecordID")),
                  Closed(Plain("AcctNum", "AcctNum")),
                  Formatted("Area Code", "Area", "(###)"),
                  Formatted("Phone Number", "Phone", "###-####"),
                  Plain("Extention Number", "Ext"),
                  Plain("Type of Number", "TypeDescription"),
                  Plain("Comment", "Comment"),
              },
          .cellTests = {{"TypeDescription", IsEmpty, "You must have a type of phone number description!"}},
          .defaultRows = {{"DefaultPhoneNumber", "Default Phone Number"}},
          .setupKey = "tb_PhoneSetup"};
}

class PhonesTab final : public RecordTab {
 public:
  explicit PhonesTab(frmCustMain& screen) : RecordTab(screen, tab::Phones, "RecordID", TheTab()) {
    CardBeginsWith(lblPhoneRecordID);
    cboPhoneTypes.FillFrom(s.DataPhoneTypes, "Type", "TypeDescription", {{"TypeDescription", "", ""}});
    txtPhoneArea.KeyPress = [this](int& KeyAscii) { txtPhoneArea_KeyPress(KeyAscii); };
    txtPhoneArea.GotFocus = [this] { mAreaDigits.clear(); };
  }

  std::string Statement(std::int32_t Acct) override {
    return "SELECT Phones.RecordID, Phones.AcctNum, Phones.Area, Phones.Phone, Phones.Ext, Phones.Type, PhoneTypes.TypeDescription, "
           "Phones.Comment"
           " FROM PhoneTypes INNER JOIN Phones ON PhoneTypes.Type = Phones.Type"
           " WHERE (AcctNum=" +
           std::to_string(Acct) + ")";
  }

  std::optional<std::string> OrderBy(const platform::GridColumn& column, int ColIndex) override {
    s.txtSearch[mTab].Mask(ColIndex == 2 ? "(%%%)" : ColIndex == 3 ? "%%%-%%%%" : "");
    return column.dataField;
  }

  platform::Control& FirstField() override { return txtPhoneArea; }
  void Loading() override { cboPhoneTypes.ColumnCaption(0, "Phone Type"); }

  bool Add(ResumeNext& on) override {
    mFields.Clear(on);
    // A customer's first phone proposes itself as the default.
    bool first = false;
    on([&] { first = Rows()->RecordCount() == 0; });
    chkDefaultPhone.Value(first ? 1 : 0);
    return true;
  }

  /// The default box is not touched: it keeps what it showed last.
  void Edit(ResumeNext& on) override { mFields.Load(on, Rows()); }

  bool Save(ResumeNext& on, SaveState& state) override {
    if (!Passes(state, {{BoundText(cboPhoneTypes).empty(), "You must select a phone number type!"}})) return false;
    RowWrite row(on);
    if (Adding()) {
      row.Must([] { rsPhones->AddNew(); });
      row([&] { rsPhones->SetField("AcctNum", Owner()); });
    } else if (!BeginEdit(row, rsPhones, state, kGone)) {
      return false;
    }
    mFields.Write(row, rsPhones);
    Store(row, rsPhones, state);
    if (chkDefaultPhone.Value() != 0) MakeDefault(row, rsPhones, {"DefaultPhoneNumber"});
    return true;
  }

  bool MayDelete(ResumeNext& on, DeleteState& state) override {
    const std::int32_t id = NumberToDelete(on, state);
    if (IsDefault(on, "DefaultPhoneNumber", id)) state.Repairs[0] = {true, "DefaultPhoneNumber"};
    return true;
  }

 private:
  static constexpr GoneText kGone{"The edited phone number can longer be found (Phone Record ID ",
                                  ").  The phone number changes made can not be saved!"};

  void ShowType(ResumeNext& on, const platform::RecordsetRef& Row) {
    EmptyCombo(cboPhoneTypes);
    const platform::DataControl& types = s.DataPhoneTypes;
    bool found = false;
    on([&] {
      if (!HasRecords(types)) return;
      types.Recordset()->FindFirst("[Type]='" + TextOf(Row, "Type") + "'");
      found = !types.Recordset()->NoMatch();
    });
    if (!found) return;
    on([&] { cboPhoneTypes.BoundValue(types.Recordset()->Field("Type")); });
    on([&] { cboPhoneTypes.Text(TextOf(types.Recordset(), "TypeDescription")); });
  }

  void txtPhoneArea_KeyPress(int& KeyAscii);

  platform::Label lblPhoneRecordID{s, "lblPhoneRecordID"};
  platform::TextBox txtPhoneArea{s, "txtPhoneArea", 3, "(%%%)"};
  platform::TextBox txtPhone{s, "txtPhone", 7, "%%%-%%%%"};
  platform::TextBox txtPhoneExt{s, "txtPhoneExt", 5};
  platform::ComboBox cboPhoneTypes{s, "cboPhoneTypes"};
  platform::TextBox txtPhoneComment{s, "txtPhoneComment", 20};
  platform::CheckBox chkDefaultPhone{s, "chkDefaultPhone", "Default Phone Number"};

  CardFields mFields{
      card::Shown("RecordID", lblPhoneRecordID),
      card::Text("Area", txtPhoneArea),
      card::Text("Phone", txtPhone),
      card::Text("Ext", txtPhoneExt),
      card::Bound("Type", cboPhoneTypes, [this](ResumeNext& on, const platform::RecordsetRef& row) { ShowType(on, row); }),
      card::Text("Comment", txtPhoneComment),
  };

  std::string mAreaDigits;  ///< what has been typed into the area code at one go, beyond its own length
};

/// A whole number typed into the area code, as it stands on a letter head, goes on into the number when that is empty. Ten
/// digits came at one go, or eleven with the 1 of a long-distance call in front; fewer stay what they are.
void PhonesTab::txtPhoneArea_KeyPress(int& KeyAscii) {
  constexpr std::size_t kArea = 3;
  constexpr std::size_t kWhole = 10;
  if (KeyAscii < '0' || KeyAscii > '9') {
    if (KeyAscii < ' ') mAreaDigits.clear();
    return;
  }
  // Typed somewhere else in the box, or after another text came into it: a new beginning.
  if (txtPhoneArea.Text() != mAreaDigits.substr(0, kArea)) mAreaDigits.clear();
  mAreaDigits += static_cast<char>(KeyAscii);
  const std::size_t lead = mAreaDigits.front() == '1' ? 1 : 0;
  if (mAreaDigits.size() < kWhole + lead) return;
  if (mAreaDigits.size() == kWhole + lead && txtPhone.Text().empty()) {
    txtPhoneArea.Text(mAreaDigits.substr(lead, kArea));
    txtPhone.Text(mAreaDigits.substr(lead + kArea));
    KeyAscii = 0;
  }
  mAreaDigits.clear();
}

}  // namespace

std::unique_ptr<RecordTab> MakePhonesTab(frmCustMain& screen) { return std::make_unique<PhonesTab>(screen); }

}  // namespace orcussch
