#pragma once

// The criteria of the query screen, each with its tag, mask and caption. A tag goes into the statement as it stands, so the operator
// and the mark that opens a date stand in it.
namespace orcussch::criteria {

inline constexpr int kTexts = 8;
inline constexpr int kMiscs = 9;
inline constexpr int kAmounts = 12;
inline constexpr int kDates = 12;
inline constexpr int kLists = 2;

/// The tabs in their order.
enum Tab { Names, Misc, Amounts, Dates };
inline constexpr int kTabs = 4;
inline constexpr const char* kTabCaptions[kTabs] = {"  Names && Addresses  ", "  Miscellaneous  ", "  Amounts  ", "  Dates  "};

/// A text with its way of comparing.
struct Text {
  int frame;  ///< in fraSQL
  const char* caption;
  const char* word;  ///< in the words that tell what a query asks
  const char* tag;
  int length;  ///< 0: any
  const char* mask;
};

inline constexpr int kAddress = 3;  ///< looks in the second line too
inline constexpr int kPhone = 7;
inline constexpr int kPhoneNumber = 8;  ///< the box beside the area, with no check box and no comparison of its own
inline constexpr const char* kPhoneNumberMask = "___-____";

inline constexpr Text kText[kTexts] = {
    {0, "Last Name:", "last name", "Customers.LastName", 30, ""},
    {11, "First Name:", "first name", "Customers.FirstName", 30, ""},
    {12, "Title:", "title", "Customers.Title", 30, ""},
    {2, "Address:", "address", "Customers.Addr1", 30, ""},
    {3, "City:", "city", "Customers.City", 25, ""},
    {4, "State:", "state", "Customers.State", 0, ""},
    {5, "Zip Code:", "zip code", "Customers.Zip", 25, ""},
    {6, "Phone Number:", "phone number", "Phones.Area", 0, "(___)"},
};

/// The ways of comparing, by the codes that the statement knows.
struct Comparison {
  const char* code;
  const char* caption;
  const char* word;
};
inline constexpr Comparison kComparisons[] = {
    {"c", "contains", "contains"}, {"x", "exactly matches", "is"}, {"s", "starts with", "starts with"}, {"e", "ends with", "ends with"}};
inline constexpr Comparison kFirstComparison = kComparisons[2];
inline constexpr int kCardComparison = 8;  ///< the card number's, in cboSQL

/// What stands on the second tab, each in a frame of its own.
enum MiscCriterion { Status, InvoiceNo, CreditCard, KeyWords, CustomerTypes, Billing, CheckNo, TaxID, FinanceCharge };

struct MiscDesign {
  const char* caption;
  const char* tag;
};
inline constexpr MiscDesign kMisc[kMiscs] = {
    {"Customer Status:", "Customers.Status ="},
    {"Invoice No:", ""},
    {"Credit Card No.:", "CustCreditCards.CCNumber"},
    {"Key Words:", ""},
    {"Customer Types:", ""},
    {"Billing Status:", "Customers.NonBillable ="},
    {"Check No.:", ""},
    {"Tax Exemption I.D.:", ""},
    // Nothing reads this tag: the statement has the condition's words of its own.
    {"Finance Charge Computation:", "Customers.NonBillable ="},
};

/// A list of which rows can be chosen.
struct ListDesign {
  MiscCriterion criterion;
  const char* table;
  const char* field;
  const char* caption;
  const char* prompt;
  const char* word;
};
inline constexpr ListDesign kList[kLists] = {
    {KeyWords, "KeyWords", "KeyWord", "Key Word", "Keyword:", "key word"},
    {CustomerTypes, "DataCodes", "Description", "Customer Type", "Cust. Type:", "type"},
};

/// A range: two criteria, the even one its lower end.
struct Range {
  const char* caption;
  const char* word;
  const char* least;
  const char* most;
};
inline constexpr Range kAmount[kAmounts / 2] = {
    {"Current Balance Range:", "current balance", "Customers.CurrBalance>=", "Customers.CurrBalance<="},
    {"Current Finance Charge Range:", "current finance charge", "Customers.CurrFinanceCharge>=", "Customers.CurrFinanceCharge<="},
    {"Paid This Month Range:", "paid this month", "Customers.PaidThisMonth>=", "Customers.PaidThisMonth<="},
    {"Paid This Year Range:", "paid this year", "Customers.PaidThisYear>=", "Customers.PaidThisYear<="},
    {"Paid Last Year Range:", "paid last year", "Customers.PaidLastYear>=", "Customers.PaidLastYear<="},
    {"Paid To Date Range:", "paid to date", "Customers.PaidToDate>=", "Customers.PaidToDate<="},
};
inline constexpr Range kDate[kDates / 2] = {
    {"Entry Date Range:", "entry date", "Customers.EntryDate>=#", "Customers.EntryDate<=#"},
    {"Last Transaction Date Range:", "last transaction", "Customers.LastTrans>=#", "Customers.LastTrans<=#"},
    {"Last Order Range:", "last order", "Customers.LastOrdDate>=#", "Customers.LastOrdDate<=#"},
    {"Last Statement Date Range:", "last statement", "Customers.LastStateDate>=#", "Customers.LastStateDate<=#"},
    {"Last Payment Date Range:", "last payment", "Customers.LastPayDate>=#", "Customers.LastPayDate<=#"},
    {"Tax Exemption Expiration Date Range:", "tax exemption expiry", "Customers.ExemptExpireDate>=#", "Customers.ExemptExpireDate<=#"},
};
inline constexpr const char* kDateMask = "_/_/____";

}  // namespace orcussch::criteria
