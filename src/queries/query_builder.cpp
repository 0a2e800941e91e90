#include "queries/query_builder.h"

#include <algorithm>
#include <array>

#include "platform/values/convert.h"
#include "queries/query_text.h"
#include "session/ModCustSch.h"

namespace orcussch {

using platform::CStr;

namespace {

/// The plain number, also of a box that shows it with a currency sign; only an emptied box has none.
std::string AmountText(const platform::CurrencyEdit& box) { return box.Text().empty() ? "" : CStr(box.Value()); }

/// Of a card number the last digits alone are told.
std::string LastDigits(const std::string& number) {
  constexpr int kShown = 4;
  return platform::Len(number) > kShown ? "..." + platform::Right(number, kShown) : number;
}

}  // namespace

void QueryBuilder::Build(std::string& SQL) {
  AppendJoins(SQL);
  Texts();
  PhoneNumber();
  Status();
  Billing();
  Invoice();
  CreditCard();
  KeyWords();
  CustomerTypes();
  CheckNumber();
  TaxNumber();
  FinanceCharge();
  Amounts();
  Dates();
  SQL += Where;
}

/// The rows that a join gives to one customer are folded into one. Each join but the last one stands in parentheses.
void QueryBuilder::AppendJoins(std::string& SQL) {
  const bool invoice = Asks(criteria::InvoiceNo) && !s.txtInvoiceNo.Text().empty();
  const bool check = Asks(criteria::CheckNo) && !s.txtCheckNo.Text().empty();
  for (int i = 0; i < criteria::kLists; ++i) mMarked[i] = Asks(criteria::kList[i].criterion) && s.grid[i].SelBookmarks.Count() > 0;
  const std::array<Join, 5> joins = {{
      {"Phones", AsksPhone() && (!s.txtNameAdd[criteria::kPhone].Text().empty() || !s.txtNameAdd[criteria::kPhoneNumber].Text().empty())},
      {"Transactions", invoice || check},
      {"CustCreditCards", Asks(criteria::CreditCard) && !s.txtCreditCard.Text().empty()},
      {"Lookups", mMarked[0]},
      {"CustCodes", mMarked[1]},
  }};
  const auto count = std::count_if(joins.begin(), joins.end(), [](const Join& join) { return join.wanted; });
  auto open = std::max<std::ptrdiff_t>(count - 1, 0);
  SQL = "Select DISTINCTROW Customers.* FROM " + std::string(static_cast<std::size_t>(open), '(') + "Customers";
  for (const Join& join : joins) {
    if (!join.wanted) continue;
    SQL += std::string(" INNER JOIN ") + join.table + " ON Customers.AcctNum = " + join.table + ".AcctNum";
    if (open > 0) {
      SQL += ")";
      --open;
    }
  }
}

void QueryBuilder::Compare(const std::string& Value, int Combo) { SQLOperator(Where, Value, CStr(s.cboSQL[Combo].BoundValue())); }

std::string QueryBuilder::HowCompared(int Combo) const {
  const std::string code = platform::LCase(CStr(s.cboSQL[Combo].BoundValue()));
  for (const criteria::Comparison& comparison : criteria::kComparisons)
    if (code == comparison.code) return std::string(" ") + comparison.word + " ";
  return std::string(" ") + criteria::kFirstComparison.word + " ";
}

void QueryBuilder::Tell(const std::string& words) { mWords += (mWords.empty() ? "" : ", ") + words; }

void QueryBuilder::Texts() {
  for (int i = 0; i < criteria::kTexts; ++i) {
    if (s.chkSelectNameAdd[i].Value() != 1 || s.txtNameAdd[i].Text().empty()) continue;
    const bool twoLines = i == criteria::kAddress;
    const std::string value = FixQuotes(s.txtNameAdd[i].Text());
    TestWhere(Where);
    if (twoLines) Where += "(";
    Where += "(" + s.chkSelectNameAdd[i].Tag() + " ";
    Compare(value, i);
    Tell((i == criteria::kPhone ? "area" : criteria::kText[i].word) + HowCompared(i) + s.txtNameAdd[i].Text());
    if (twoLines) {
      Where += " OR (Customers.Addr2 ";
      Compare(value, i);
      Where += ")";
    }
  }
}

/// Area and number share one way of comparing.
void QueryBuilder::PhoneNumber() {
  const std::string number = s.txtNameAdd[criteria::kPhoneNumber].Text();
  if (!AsksPhone() || number.empty()) return;
  TestWhere(Where);
  Where += "(Phones.Phone ";
  Compare(FixQuotes(number), criteria::kPhone);
  Tell(criteria::kText[criteria::kPhone].word + HowCompared(criteria::kPhone) + s.txtNameAdd[criteria::kPhoneNumber].DisplayText());
}

void QueryBuilder::Status() {
  if (!Asks(criteria::Status)) return;
  TestWhere(Where);
  Where += "(" + s.chkSelectMisc[criteria::Status].Tag() + (s.optStatus[1].Value() ? "1" : s.optStatus[2].Value() ? "2" : "0") + ")";
  Tell("status " + s.optStatus[s.optStatus[1].Value() ? 1 : s.optStatus[2].Value() ? 2 : 0].Caption());
}

void QueryBuilder::Billing() {
  if (!Asks(criteria::Billing)) return;
  TestWhere(Where);
  Where += "(" + s.chkSelectMisc[criteria::Billing].Tag() + CStr(s.optBillingStatus[1].Value()) + ")";
  Tell(s.optBillingStatus[1].Value() ? "non-billable" : "billable");
}

/// The alternate number is the one value that goes in as it was entered.
void QueryBuilder::Invoice() {
  const std::string number = s.txtInvoiceNo.Text();
  if (!Asks(criteria::InvoiceNo) || number.empty()) return;
  TestWhere(Where);
  if (s.optInvoiceNo[1].Value()) {
    Where += "(Transactions.AltInvNo = " + number + ")";
    Tell("alternate invoice no. " + number);
  } else {
    Where += "(Transactions.TranType<>'P') And (Transactions.InvChkCredNo = '" + FixQuotes(number) + "')";
    Tell("invoice no. " + number);
  }
}

void QueryBuilder::CreditCard() {
  const std::string number = s.txtCreditCard.Text();
  if (!Asks(criteria::CreditCard) || number.empty()) return;
  TestWhere(Where);
  Where += "(" + s.chkSelectMisc[criteria::CreditCard].Tag() + " ";
  Compare(FixQuotes(number), criteria::kCardComparison);
  Tell("credit card no." + HowCompared(criteria::kCardComparison) + LastDigits(number));
}

/// The list's rows in the order in which they were marked; the list moves to each of them.
template <class Condition>
void QueryBuilder::ForEachMarked(int List, Condition&& condition) {
  if (!mMarked[List]) return;
  s.App().DoEvents();
  if (!s.Loaded()) return;
  std::string names;
  for (const platform::Bookmark& row : s.grid[List].SelBookmarks.All()) {
    s.grid[List].CurrentBookmark(row);
    if (names.empty()) {
      TestWhere(Where);
      Where += "(";
    } else {
      Where += " OR ";
    }
    const platform::RecordsetRef rs = s.Data[List].Recordset();
    names += (names.empty() ? " " : " or ") + CStr(platform::Concat("", rs->Field(criteria::kList[List].field)));
    condition(rs);
  }
  if (names.empty()) return;
  Where += ")";
  Tell(criteria::kList[List].word + names);
}

void QueryBuilder::KeyWords() {
  ForEachMarked(0, [this](const platform::RecordsetRef& Rs) { Where += "Lookups.Text = '" + FixQuotes(CStr(Rs->Field("Keyword"))) + "'"; });
}

void QueryBuilder::CustomerTypes() {
  ForEachMarked(1, [this](const platform::RecordsetRef& Rs) { Where += "CustCodes.CustCodes = " + CStr(Rs->Field("Code")); });
}

void QueryBuilder::CheckNumber() {
  const std::string number = s.txtCheckNo.Text();
  if (!Asks(criteria::CheckNo) || number.empty()) return;
  TestWhere(Where);
  Where += "(Transactions.TranType='P') And (Transactions.InvChkCredNo = '" + FixQuotes(number) + "')";
  Tell("check no. " + number);
}

void QueryBuilder::TaxNumber() {
  const std::string number = s.txtTaxID.Text();
  if (!Asks(criteria::TaxID) || number.empty()) return;
  TestWhere(Where);
  Where += "(Customers.TaxID = '" + FixQuotes(number) + "')";
  Tell("tax exemption I.D. " + number);
}

void QueryBuilder::FinanceCharge() {
  if (!Asks(criteria::FinanceCharge)) return;
  TestWhere(Where);
  Where += std::string("(Customers.OmitFinanceCharge = ") + (s.optOmitFinChg[1].Value() ? "True" : "False") + ")";
  Tell(s.optOmitFinChg[1].Value() ? "finance charge omitted" : "finance charge calculated");
}

void QueryBuilder::Amounts() {
  for (int i = 0; i < criteria::kAmounts; ++i) {
    if (s.chkSelectAmount[i].Value() != 1) continue;
    const std::string amount = AmountText(s.txtAmount[i]);
    if (amount.empty()) continue;
    TestWhere(Where);
    Where += "(" + s.chkSelectAmount[i].Tag() + amount + ")";
    Tell(criteria::kAmount[i / 2].word + std::string(i % 2 == 0 ? " at least " : " at most ") + s.txtAmount[i].DisplayText());
  }
}

/// A day without its year is no date here: the statement would have to guess one.
void QueryBuilder::Dates() {
  for (int i = 0; i < criteria::kDates; ++i) {
    const std::string day = s.txtDate[i].Text();
    if (s.chkSelectDate[i].Value() != 1 || !platform::IsDate(day)) continue;
    TestWhere(Where);
    Where += "(" + s.chkSelectDate[i].Tag() + day + "#)";
    Tell(criteria::kDate[i / 2].word + std::string(i % 2 == 0 ? " from " : " to ") + day);
  }
}

}  // namespace orcussch
