#include "maintenance/frmCustMain.h"
#include "records/card_fields.h"
#include "records/columns.h"
#include "records/fields.h"
#include "session/ModCustSch.h"

namespace orcussch {

using namespace column;
using platform::Val;

namespace {

constexpr int kYearLength = 4;

bool NotNumeric(const std::string& V) { return !platform::IsNumeric(V); }
bool NoCardNumber(const std::string& V) { return V.empty() || !platform::IsNumeric(V); }
/// A text that is no number can't be compared: the failure is reported and the cell passes on.
bool NoMonth(const std::string& V) { return platform::CDbl(V) < 1 || platform::CDbl(V) > 12; }
bool NoYear(const std::string& V) { return platform::Len(V) != kYearLength; }

TabDesign TheTab() {
  return {.caption = "  Credit Cards    ",
          .record = "credit card",
          .field = "CCNumber",
          .ascending = "Ascending Number",
          .descending = "Descending Number",
          .prompt = "Number",
          .searchMask = "%%%%%-%%%",
          .database = &gCustomerPath,
          .columns =
              {
                  Closed(Plain("Record ID", "CreditCardID")),
                  Closed(Plain("Credit Card Type", "CreditCardName")),
                  CardNumber("Number", "CCNumber"),
                  Plain("Card Holder", "CCHolder"),
                  Plain("Expire Month", "CCMonth"),
                  Formatted("Expire Year", "CCYear", "####"),
                  Money("Limit", "CCLimit"),
                  Plain("Comment", "CCComment"),
              },
          .cellTests =
              {
                  {"CCNumber", NoCardNumber, "You must enter a numeric credit card number!"},
                  {"CCMonth", NoMonth, "You must enter a numeric credit card expiration month form 1 to 12!"},
                  {"CCYear", NoYear, "You must enter a 4 digit numeric credit card expiration year!"},
                  // No column has that name, so a limit is not tested here; the engine takes care of it.
                  {"CCLimt", NotNumeric, "You must enter a numeric credit card limit!"},
              },
          .defaultRows = {{"DefaultCreditCard", "Default Credit Card"}},
          .billableOnly = true,
          .setupKey = "tb_CreditCardSetup"};
}

class CreditCardsTab final : public RecordTab {
 public:
  explicit CreditCardsTab(frmCustMain& screen) : RecordTab(screen, tab::CreditCards, "CreditCardID", TheTab()) {
    CardBeginsWith(cboCreditCards);
    cboCreditCards.FillFrom(s.DataCreditCards, "CreditCardType", "CreditCardName", {{"CreditCardName", "", ""}});
    txtCCYear.ToolTipText("Enter the 4 digit year");
  }

  std::string Statement(std::int32_t Acct) override {
    return "SELECT CustCreditCards.CreditCardID, CustCreditCards.AcctNum, CustCreditCards.CCType, CreditCardTypes.CreditCardName, "
           "CustCreditCards.CCNumber, CustCreditCards.CCHolder, CustCreditCards.CCMonth, CustCreditCards.CCYear, "
           "CustCreditCards.CCLimit, CustCreditCards.CCComment"
           " FROM CreditCardTypes INNER JOIN CustCreditCards ON CreditCardTypes.CreditCardType = CustCreditCards.CCType"
           " WHERE (AcctNum=" +
           std::to_string(Acct) + ")";
  }

  std::optional<std::string> OrderBy(const platform::GridColumn& column, int) override {
    s.txtSearch[mTab].Mask("");
    return column.dataField;
  }

  platform::Control& FirstField() override { return cboCreditCards; }
  void Loading() override { cboCreditCards.ColumnCaption(0, "Credit Card Name"); }

  bool Add(ResumeNext& on) override {
    on([&] { s.DataCreditCards.Refresh(); });
    mFields.Clear(on);
    txtCCHolder.Text(s.lblCustomer.Caption());
    ProposeDefault(on);
    return true;
  }

  void Edit(ResumeNext& on) override {
    on([&] { s.DataCreditCards.Refresh(); });
    mFields.Load(on, Rows());
    ProposeDefault(on);
  }

  bool Save(ResumeNext& on, SaveState& state) override {
    if (!Valid(state)) return false;
    RowWrite row(on);
    if (Adding()) {
      row.Must([] { rsCustCreditCards->AddNew(); });
      row([&] { rsCustCreditCards->SetField("AcctNum", Owner()); });
    } else if (!BeginEdit(row, rsCustCreditCards, state, kGone)) {
      return false;
    }
    mFields.Write(row, rsCustCreditCards);
    Store(row, rsCustCreditCards, state);
    if (chkDefaultCC.Value() != 0) MakeDefault(row, rsCustCreditCards, {"DefaultCreditCard"});
    return true;
  }

  bool MayDelete(ResumeNext& on, DeleteState& state) override {
    const std::int32_t id = NumberToDelete(on, state);
    if (IsDefault(on, "DefaultCreditCard", id)) state.Repairs[0] = {true, "DefaultCreditCard"};
    return true;
  }

 private:
  static constexpr GoneText kGone{"The edited credit card can no longer be found (Credit Card ID ",
                                  ").  The credit card changes made can not be saved!"};

  /// Whether the customer has a default card at all, not whether this one is it.
  void ProposeDefault(ResumeNext& on) {
    bool hasDefault = false;
    on([&] {
      const platform::Value card = Customer()->Field("DefaultCreditCard");
      hasDefault = !card.IsNull() && platform::CLng(card) > 0;
    });
    chkDefaultCC.Value(hasDefault ? 0 : 1);
  }

  void ShowType(ResumeNext& on, const platform::RecordsetRef& Row) {
    EmptyCombo(cboCreditCards);
    on([&] { cboCreditCards.BoundValue(Row->Field("CCType")); });
    on([&] { cboCreditCards.Text(TextUnguarded(Row, "CreditCardName")); });
  }

  bool Valid(const SaveState& state) {
    const double month = Val(txtCCMonth.Text());
    const int yearLength = platform::Len(platform::Trim(txtCCYear.Text()));
    return Passes(state, {
                             {BoundText(cboCreditCards).empty(), "You must select a credit card type!", &cboCreditCards},
                             {txtCCNumber.Text().empty(), "You must enter the credit card number!", &txtCCNumber},
                             {month < 1 || month > 12, "You must enter an expiration month between 1 and 12!", &txtCCMonth},
                             {yearLength != kYearLength, "You must enter a 4-digit expiration date year!", &txtCCYear},
                         });
  }

  platform::ComboBox cboCreditCards{s, "cboCreditCards"};
  platform::TextBox txtCCNumber{s, "txtCCNumber", 30};
  platform::TextBox txtCCHolder{s, "txtCCHolder", 30};
  platform::TextBox txtCCMonth{s, "txtCCMonth", 2, "%%"};
  platform::TextBox txtCCYear{s, "txtCCYear", 4, "%%%%"};
  platform::CurrencyEdit txtCCLimit{s, "txtCCLimit"};
  platform::TextBox txtCCComment{s, "txtCCComment", 30};
  platform::CheckBox chkDefaultCC{s, "chkDefaultCC", "Default Credit Card"};

  CardFields mFields{
      card::Bound("CCType", cboCreditCards, [this](ResumeNext& on, const platform::RecordsetRef& row) { ShowType(on, row); }),
      card::TextNotNull("CCNumber", txtCCNumber),
      card::TextNotNull("CCHolder", txtCCHolder),
      card::TextNotNull("CCMonth", txtCCMonth),
      card::TextNotNull("CCYear", txtCCYear),
      card::Amount("CCLimit", txtCCLimit),
      card::TextNotNull("CCComment", txtCCComment),
  };
};

}  // namespace

std::unique_ptr<RecordTab> MakeCreditCardsTab(frmCustMain& screen) { return std::make_unique<CreditCardsTab>(screen); }

}  // namespace orcussch
