#include "people.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <memory>
#include <random>

#include "engine/data_file.h"
#include "platform/values/value.h"

using platform::Null;
using platform::Value;

namespace {

class Chance {
 public:
  explicit Chance(unsigned seed) : random_(seed) {}
  bool In(int percent) { return static_cast<int>(random_() % 100) < percent; }
  int Below(int end) { return static_cast<int>(random_() % static_cast<unsigned>(end)); }

 private:
  std::mt19937 random_;
};

constexpr const char* kUsual[7] = {"Smith", "Anna Lee", "Mrs", "12 O'Neil St", "Duluth", "MN", "55802-1234"};
constexpr const char* kOther[7] = {"Jones", "Bob", "Dr", "PO Box 5", "Elko", "WI", "10011"};
constexpr int kFirstDay2024 = 45292;

std::optional<std::string> Usually(Chance& chance, const char* usual, const char* other) {
  if (chance.In(96)) return usual;
  return chance.In(60) ? std::optional<std::string>(other) : std::nullopt;
}

Person MakePerson(std::int32_t account) {
  Chance chance(static_cast<unsigned>(account) * 7919U);
  Person p;
  p.account = account;
  for (int i = 0; i < 7; ++i) p.text[i] = Usually(chance, kUsual[i], kOther[i]);
  if (chance.In(40)) {
    p.addr2 = p.text[3];
    p.text[3] = "Rear House";
  }
  p.status = chance.Below(3);
  p.nonBillable = chance.In(35);
  p.taxID = Usually(chance, "MN-1", "mn-2");
  if (chance.In(92)) p.omitFinance = chance.In(45);
  for (double& amount : p.amount) amount = chance.In(96) ? 60 + chance.Below(9940) + chance.Below(4) * 0.25 : -200 - chance.Below(50);
  for (std::optional<int>& day : p.day)
    if (chance.In(97)) day = chance.In(97) ? 35 + chance.Below(650) : chance.In(50) ? chance.Below(25) : 715 + chance.Below(16);
  for (int i = chance.Below(3); i >= 0; --i) p.phones.push_back({chance.In(90) ? "612" : "715", chance.In(90) ? "5551234" : "7770000"});
  if (chance.In(85)) p.papers.push_back({"I", "INV?7", chance.In(80) ? 77 : 78});
  if (chance.In(50)) p.papers.push_back({"C", "INV?7", 77});
  if (chance.In(85)) p.papers.push_back({"P", "5005", 0});
  if (chance.In(10)) p.papers.push_back({"P", "INV?7", 0});
  for (int i = chance.Below(3); i >= 0; --i) p.cards.push_back(chance.In(92) ? "4111222233334444" : "5000");
  if (chance.In(75)) p.words.emplace_back("Boiler");
  if (chance.In(60)) p.words.emplace_back("pump");
  if (chance.In(20)) p.words.emplace_back("Drain");
  if (chance.In(75)) p.types.push_back(3);
  if (chance.In(50)) p.types.push_back(7);
  if (chance.In(20)) p.types.push_back(5);
  return p;
}

Value OrNull(const std::optional<std::string>& text) { return text ? Value(*text) : Value(Null); }

char Small(char character) { return static_cast<char>(std::tolower(static_cast<unsigned char>(character))); }

/// Without case; a question mark stands for any one character, as the apostrophes of what was entered do.
bool SameAt(const std::string& text, std::size_t at, const std::string& wanted) {
  if (at > text.size() || text.size() - at < wanted.size()) return false;
  for (std::size_t i = 0; i < wanted.size(); ++i)
    if (wanted[i] != '\'' && Small(text[at + i]) != Small(wanted[i])) return false;
  return true;
}

bool Compared(const std::optional<std::string>& text, int level, const std::string& wanted) {
  if (!text || text->size() < wanted.size()) return false;
  const std::size_t last = text->size() - wanted.size();
  switch (question::kWays[level - 1].code) {
    case 'x':
      return last == 0 && SameAt(*text, 0, wanted);
    case 's':
      return SameAt(*text, 0, wanted);
    case 'e':
      return SameAt(*text, last, wanted);
    default:
      for (std::size_t at = 0; at <= last; ++at)
        if (SameAt(*text, at, wanted)) return true;
      return false;
  }
}

constexpr double kLeast[6] = {50, 0, -5, 0.5, 1, -100};
constexpr double kMost[6] = {9500.25, 9600, 9700, 9800, 9900.1234, 9850};
/// Days since 1/1/2024 of what is entered.
constexpr int kFrom[6] = {19, 24, 31, 9, 0, 30};
constexpr int kTo[6] = {714, 719, 724, 730, 699, 700};

bool AnswersPhone(const Person& p, const question::Levels& q) {
  const int way = q[7];
  if (way == 0) return true;
  return std::any_of(p.phones.begin(), p.phones.end(), [&](const Person::Phone& phone) {
    const bool area = q[question::kPhoneNumber] == 2 || Compared(phone.area, way, question::TextValue(7, way));
    const bool number = q[question::kPhoneNumber] == 0 || Compared(phone.number, way, question::NumberValue(way));
    return area && number;
  });
}

/// Invoice and check are asked of one paper.
bool AnswersPapers(const Person& p, const question::Levels& q) {
  const int invoice = q[question::kInvoice];
  const int check = q[question::kCheck];
  if (invoice == 0 && check == 0) return true;
  return std::any_of(p.papers.begin(), p.papers.end(), [&](const Person::Paper& paper) {
    if (invoice == 1 && (paper.kind == "P" || paper.number != "INV?7")) return false;
    if (invoice == 2 && paper.alternate != 77) return false;
    return check == 0 || (paper.kind == "P" && paper.number == "5005");
  });
}

bool HasOneOf(const std::vector<std::string>& words, std::initializer_list<const char*> wanted) {
  return std::any_of(wanted.begin(), wanted.end(), [&](const char* word) {
    return std::any_of(words.begin(), words.end(),
                       [&](const std::string& mine) { return mine.size() == std::string(word).size() && SameAt(mine, 0, word); });
  });
}

bool HasType(const Person& p, int type) { return std::find(p.types.begin(), p.types.end(), type) != p.types.end(); }

bool AnswersLists(const Person& p, const question::Levels& q) {
  if (q[question::kKeyWords] == 1 && !HasOneOf(p.words, {"Boiler"})) return false;
  if (q[question::kKeyWords] == 2 && !HasOneOf(p.words, {"Pump", "Boiler"})) return false;
  if (q[question::kTypes] == 1 && !HasType(p, 3)) return false;
  return q[question::kTypes] != 2 || HasType(p, 7) || HasType(p, 3);
}

bool AnswersOptions(const Person& p, const question::Levels& q) {
  if (q[question::kStatus] != 0 && p.status != q[question::kStatus] - 1) return false;
  if (q[question::kBilling] != 0 && p.nonBillable != (q[question::kBilling] == 2)) return false;
  if (q[question::kTaxID] != 0 && p.taxID != question::kTaxNumber) return false;
  return q[question::kFinance] == 0 || (p.omitFinance && *p.omitFinance == (q[question::kFinance] == 2));
}

bool AnswersRanges(const Person& p, const question::Levels& q) {
  for (int i = 0; i < 6; ++i) {
    const auto least = static_cast<std::size_t>(question::kAmounts + 2 * i);
    const auto from = static_cast<std::size_t>(question::kDates + 2 * i);
    if (q[least] != 0 && !(p.amount[i] >= kLeast[i])) return false;
    if (q[least + 1] != 0 && !(p.amount[i] <= kMost[i])) return false;
    if (q[from] != 0 && !(p.day[i] && *p.day[i] >= kFrom[i])) return false;
    if (q[from + 1] != 0 && !(p.day[i] && *p.day[i] <= kTo[i])) return false;
  }
  return true;
}

}  // namespace

std::vector<Person> MakePeople(int count) {
  std::vector<Person> people;
  for (int i = 1; i <= count; ++i) people.push_back(MakePerson(i));
  return people;
}

bool Answers(const Person& p, const question::Levels& q) {
  for (int i = 0; i < 7; ++i) {
    const int level = q[static_cast<std::size_t>(i)];
    if (level == 0) continue;
    const std::string wanted = question::TextValue(i, level);
    if (!Compared(p.text[i], level, wanted) && !(i == 3 && Compared(p.addr2, level, wanted))) return false;
  }
  const int card = q[question::kCard];
  const bool cards = card == 0 || std::any_of(p.cards.begin(), p.cards.end(),
                                              [&](const std::string& number) { return Compared(number, card, question::CardValue(card)); });
  return cards && AnswersPhone(p, q) && AnswersPapers(p, q) && AnswersLists(p, q) && AnswersOptions(p, q) && AnswersRanges(p, q);
}

std::vector<std::int32_t> Found(const std::vector<Person>& people, const question::Levels& levels) {
  std::vector<const Person*> found;
  for (const Person& person : people)
    if (Answers(person, levels)) found.push_back(&person);
  std::stable_sort(found.begin(), found.end(), [](const Person* one, const Person* other) { return one->text[0] < other->text[0]; });
  std::vector<std::int32_t> accounts;
  for (const Person* person : found) accounts.push_back(person->account);
  return accounts;
}

namespace {

/// One table, row by row.
class Table {
 public:
  Table(const std::string& file, const char* name, const std::vector<std::string>& fields)
      : writer_(engine::OpenBulkWriter(file, name, fields)) {}
  ~Table() { writer_->Finish(); }
  Table(const Table&) = delete;
  Table& operator=(const Table&) = delete;
  void Add(const std::vector<Value>& row) const { writer_->Add(row); }

 private:
  std::unique_ptr<engine::BulkWriter> writer_;
};

std::vector<Value> CustomerRow(const Person& p) {
  std::vector<Value> row{p.account};
  for (const auto& text : p.text) row.push_back(OrNull(text));
  row.push_back(OrNull(p.addr2));
  row.emplace_back(static_cast<std::int16_t>(p.status));
  row.emplace_back(p.nonBillable);
  row.push_back(OrNull(p.taxID));
  row.push_back(p.omitFinance ? Value(*p.omitFinance) : Value(Null));
  for (const double amount : p.amount) row.emplace_back(platform::Currency{std::llround(amount * 10000)});
  for (const auto& day : p.day) row.push_back(day ? Value(platform::Date{static_cast<double>(kFirstDay2024 + *day)}) : Value(Null));
  return row;
}

void WriteSetup(const std::string& file) {
  const Table words(file, "Keywords", {"Keyword"});
  for (const char* word : {"Boiler", "Drain", "Pump"}) words.Add({word});
}

void WriteTypes(const std::string& file) {
  const Table types(file, "DataCodes", {"Code", "Description"});
  for (const int code : {3, 5, 7}) types.Add({static_cast<std::int16_t>(code), "Type " + std::to_string(code)});
}

}  // namespace

void WritePeople(const std::vector<Person>& people, const std::string& customerFile, const std::string& transactionFile) {
  WriteSetup(customerFile);
  WriteTypes(customerFile);
  const auto each = [&](const std::string& file, const char* name, const std::vector<std::string>& fields, auto&& add) {
    const Table table(file, name, fields);
    for (const Person& person : people) add(table, person);
  };
  each(customerFile, "Customers",
       {"AcctNum",
        "LastName",
        "FirstName",
        "Title",
        "Addr1",
        "City",
        "State",
        "Zip",
        "Addr2",
        "Status",
        "NonBillable",
        "TaxID",
        "OmitFinanceCharge",
        "CurrBalance",
        "CurrFinanceCharge",
        "PaidThisMonth",
        "PaidThisYear",
        "PaidLastYear",
        "PaidToDate",
        "EntryDate",
        "LastTrans",
        "LastOrdDate",
        "LastStateDate",
        "LastPayDate",
        "ExemptExpireDate"},
       [](const Table& table, const Person& p) { table.Add(CustomerRow(p)); });
  each(customerFile, "Phones", {"AcctNum", "Type", "Area", "Phone"}, [](const Table& table, const Person& p) {
    for (const Person::Phone& phone : p.phones) table.Add({p.account, "H", phone.area, phone.number});
  });
  each(customerFile, "CustCreditCards", {"AcctNum", "CCType", "CCNumber"}, [](const Table& table, const Person& p) {
    for (const std::string& card : p.cards) table.Add({p.account, "V", card});
  });
  each(customerFile, "Lookups", {"AcctNum", "Text"}, [](const Table& table, const Person& p) {
    for (const std::string& word : p.words) table.Add({p.account, word});
  });
  each(customerFile, "CustCodes", {"AcctNum", "CustCodes"}, [](const Table& table, const Person& p) {
    for (const int type : p.types) table.Add({p.account, static_cast<std::int16_t>(type)});
  });
  each(transactionFile, "Transactions", {"AcctNum", "TranType", "InvChkCredNo", "AltInvNo"}, [](const Table& table, const Person& p) {
    for (const Person::Paper& paper : p.papers) table.Add({p.account, paper.kind, paper.number, paper.alternate});
  });
}
