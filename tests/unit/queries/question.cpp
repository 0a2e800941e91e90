#include "question.h"

namespace question {

namespace {

/// By contains, exactly, starts with, ends with.
constexpr const char* kValues[kTexts][4] = {
    {"mit", "smith", "Sm", "TH"},         {"na L", "ANNA LEE", "An", "Lee"}, {"r", "mrs", "M", "s"},
    {"O'N", "12 o'neil st", "12 ", "St"}, {"ulu", "DULUTH", "Du", "th"},     {"n", "mn", "M", "N"},
    {"802", "55802-1234", "558", "1234"}, {"61", "612", "6", "2"},
};
constexpr const char* kNumbers[4] = {"55", "5551234", "555", "34"};
constexpr const char* kCards[4] = {"2222", "4111222233334444", "4111", "44"};
constexpr const char* kTextTags[kTexts] = {"Customers.LastName", "Customers.FirstName", "Customers.Title", "Customers.Addr1",
                                           "Customers.City",     "Customers.State",     "Customers.Zip",   "Phones.Area"};

/// As entered, and as the statement has it.
struct Amount {
  const char* entered;
  const char* stated;
  const char* tag;
};
constexpr Amount kAmountOf[12] = {
    {"$50.00", "50", "Customers.CurrBalance>="}, {"9,500.25", "9500.25", "Customers.CurrBalance<="},
    {"", "0", "Customers.CurrFinanceCharge>="},  {"9600", "9600", "Customers.CurrFinanceCharge<="},
    {"(5)", "-5", "Customers.PaidThisMonth>="},  {"9700", "9700", "Customers.PaidThisMonth<="},
    {".5", "0.5", "Customers.PaidThisYear>="},   {"9800.00", "9800", "Customers.PaidThisYear<="},
    {"1", "1", "Customers.PaidLastYear>="},      {"9900.1234", "9900.1234", "Customers.PaidLastYear<="},
    {"-100", "-100", "Customers.PaidToDate>="},  {"9850", "9850", "Customers.PaidToDate<="},
};
struct Day {
  const char* entered;
  const char* tag;
};
constexpr Day kDayOf[12] = {
    {"1/20/2024", "Customers.EntryDate>=#"},        {"12/15/2025", "Customers.EntryDate<=#"},
    {"01/25/2024", "Customers.LastTrans>=#"},       {"12/20/2025", "Customers.LastTrans<=#"},
    {"2/1/24", "Customers.LastOrdDate>=#"},         {"12/25/25", "Customers.LastOrdDate<=#"},
    {"1/10/2024", "Customers.LastStateDate>=#"},    {"12/31/2025", "Customers.LastStateDate<=#"},
    {"1/1/2024", "Customers.LastPayDate>=#"},       {"11/30/2025", "Customers.LastPayDate<=#"},
    {"1/31/2024", "Customers.ExemptExpireDate>=#"}, {"12/1/2025", "Customers.ExemptExpireDate<=#"},
};

std::string Quoted(std::string text) {
  for (char& character : text)
    if (character == '\'') character = '?';
  return text;
}

std::string Like(const std::string& field, int level, const std::string& value) {
  const char code = kWays[level - 1].code;
  std::string pattern = Quoted(value);
  if (code == 'c' || code == 'e') pattern.insert(0, "*");
  if (code == 'c' || code == 's') pattern += "*";
  return "(" + field + " Like '" + pattern + "')";
}

std::vector<std::string> Conditions(const Levels& q) {
  std::vector<std::string> all;
  for (int i = 0; i < 7; ++i) {
    if (q[static_cast<std::size_t>(i)] == 0) continue;
    const int level = q[static_cast<std::size_t>(i)];
    std::string one = Like(kTextTags[i], level, TextValue(i, level));
    if (i == 3) one = "(" + one + " OR " + Like("Customers.Addr2", level, TextValue(i, level)) + ")";
    all.push_back(one);
  }
  const int phone = q[7];
  if (phone != 0 && q[kPhoneNumber] != 2) all.push_back(Like("Phones.Area", phone, TextValue(7, phone)));
  if (phone != 0 && q[kPhoneNumber] != 0) all.push_back(Like("Phones.Phone", phone, NumberValue(phone)));
  if (q[kStatus] != 0) all.push_back("(Customers.Status =" + std::to_string(q[kStatus] - 1) + ")");
  if (q[kBilling] != 0) all.push_back(std::string("(Customers.NonBillable =") + (q[kBilling] == 2 ? "True" : "False") + ")");
  if (q[kInvoice] == 1) all.push_back("(Transactions.TranType<>'P') And (Transactions.InvChkCredNo = 'INV?7')");
  if (q[kInvoice] == 2) all.push_back("(Transactions.AltInvNo = 77)");
  if (q[kCard] != 0) all.push_back(Like("CustCreditCards.CCNumber", q[kCard], CardValue(q[kCard])));
  if (q[kKeyWords] == 1) all.push_back("(Lookups.Text = 'Boiler')");
  if (q[kKeyWords] == 2) all.push_back("(Lookups.Text = 'Pump' OR Lookups.Text = 'Boiler')");
  if (q[kTypes] == 1) all.push_back("(CustCodes.CustCodes = 3)");
  if (q[kTypes] == 2) all.push_back("(CustCodes.CustCodes = 7 OR CustCodes.CustCodes = 3)");
  if (q[kCheck] != 0) all.push_back("(Transactions.TranType='P') And (Transactions.InvChkCredNo = '5005')");
  if (q[kTaxID] != 0) all.push_back("(Customers.TaxID = 'MN-1')");
  if (q[kFinance] != 0) all.push_back(std::string("(Customers.OmitFinanceCharge = ") + (q[kFinance] == 2 ? "True" : "False") + ")");
  for (int i = 0; i < 12; ++i)
    if (q[static_cast<std::size_t>(kAmounts + i)] != 0) all.push_back("(" + std::string(kAmountOf[i].tag) + kAmountOf[i].stated + ")");
  for (int i = 0; i < 12; ++i)
    if (q[static_cast<std::size_t>(kDates + i)] != 0) all.push_back("(" + std::string(kDayOf[i].tag) + kDayOf[i].entered + "#)");
  return all;
}

}  // namespace

std::vector<int> LevelCounts() {
  std::vector<int> counts(kCriteria, 2);
  for (int i = 0; i < kTexts; ++i) counts[static_cast<std::size_t>(i)] = 5;
  counts[kPhoneNumber] = 3;
  counts[kStatus] = 4;
  counts[kInvoice] = 3;
  counts[kCard] = 5;
  counts[kKeyWords] = counts[kTypes] = counts[kBilling] = counts[kFinance] = 3;
  return counts;
}

std::string TextValue(int text, int level) { return kValues[text][level - 1]; }
std::string NumberValue(int level) { return kNumbers[level - 1]; }
std::string CardValue(int level) { return kCards[level - 1]; }
std::string AmountEntry(int amount) { return kAmountOf[amount].entered; }
std::string DateEntry(int date) { return kDayOf[date].entered; }

std::string Statement(const Levels& q) {
  std::string from = "Customers";
  int joined = 0;
  const auto join = [&](bool wanted, const std::string& table) {
    if (!wanted) return;
    if (joined++ > 0) from = "(" + from + ")";
    from += " INNER JOIN " + table + " ON Customers.AcctNum = " + table + ".AcctNum";
  };
  join(q[7] != 0, "Phones");
  join(q[kInvoice] != 0 || q[kCheck] != 0, "Transactions");
  join(q[kCard] != 0, "CustCreditCards");
  join(q[kKeyWords] != 0, "Lookups");
  join(q[kTypes] != 0, "CustCodes");
  std::string where;
  for (const std::string& condition : Conditions(q)) where += (where.empty() ? " WHERE " : " AND ") + condition;
  return "Select DISTINCTROW Customers.* FROM " + from + where;
}

}  // namespace question
