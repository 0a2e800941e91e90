#include "suitefiles/company/reference_checks.h"

#include <algorithm>
#include <cstdint>
#include <set>

#include "platform/values/convert.h"
#include "suitefiles/company/company_files.h"
#include "suitefiles/company/company_links.h"
#include "suitefiles/company/data_access.h"

namespace suitefiles {

namespace {

constexpr int kExamples = 5;

/// A test inside one file: rows that the statement finds are wrong.
struct RowTest {
  std::string complaint;  ///< reads on behind "<n> rows of <table> "
  std::string table;
  std::string shown;  ///< the field by which a wrong row is named
  std::string from;   ///< what follows FROM
};

/// "T LEFT JOIN O ON .. WHERE O.key Is Null And (when)": rows of T that refer to no row of O.
RowTest Missing(const std::string& complaint, const std::string& table, const std::string& shown, const std::string& field,
                const std::string& other, const std::string& key, const std::string& when) {
  return {complaint, table, shown,
          table + " LEFT JOIN " + other + " ON " + table + "." + field + " = " + other + "." + key + " WHERE (" + other + "." + key +
              " Is Null) AND (" + when + ")"};
}

std::vector<RowTest> OwnerTests() {
  std::vector<RowTest> tests;
  struct Owned {
    const char* table;
    const char* shown;
    const char* field;
  };
  constexpr Owned kOwned[] = {{"Phones", "RecordID", "AcctNum"},
                              {"Addresses", "addressID", "Customer"},
                              {"CustCreditCards", "CreditCardID", "AcctNum"},
                              {"CustLaborRates", "AcctNum", "AcctNum"},
                              {"CustCodes", "AcctNum", "AcctNum"},
                              {"Lookups", "AcctNum", "AcctNum"},
                              {"SuperCustomers", "Primary", "Primary"},
                              {"SuperCustomers", "Subordinate", "Subordinate"}};
  for (const auto& each : kOwned) {
    tests.push_back(Missing("name a customer that does not exist", each.table, each.shown, each.field, "Customers", "AcctNum", "True"));
  }
  return tests;
}

std::vector<RowTest> CodeTests() {
  return {
      Missing("have a phone type that does not exist", "Phones", "RecordID", "Type", "PhoneTypes", "Type", "Phones.Type <> ''"),
      Missing("have a card type that does not exist", "CustCreditCards", "CreditCardID", "CCType", "CreditCardTypes", "CreditCardType",
              "CustCreditCards.CCType <> ''"),
      Missing("name a customer type that does not exist", "CustCodes", "AcctNum", "CustCodes", "DataCodes", "Code", "True"),
      Missing("hold a key word that does not exist", "Lookups", "AcctNum", "Text", "Keywords", "Keyword", "True"),
      Missing("have terms that do not exist", "Customers", "AcctNum", "Terms", "Terms", "Terms", "Customers.Terms <> 0"),
      Missing("have a map code that does not exist", "Customers", "AcctNum", "MapCode", "Locations", "MapCode", "Customers.MapCode <> ''"),
      Missing("have a sales rate that does not exist", "Customers", "AcctNum", "SalesRate", "MaterialSalesRateCodes", "SalesRate",
              "Customers.SalesRate <> ''"),
      Missing("name a tax type that does not exist", "TaxGrid", "TaxID", "TaxType", "TaxTypes", "TaxType", "TaxGrid.TaxType <> 0"),
      Missing("name a tax entity that does not exist", "TaxGrid", "TaxID", "TaxEntity", "TaxEntities", "TaxEntity",
              "TaxGrid.TaxEntity <> 0"),
  };
}

/// A customer's defaults must be the customer's own records.
RowTest OwnDefault(const std::string& complaint, const std::string& field, const std::string& other, const std::string& key,
                   const std::string& owner) {
  return {complaint, "Customers", "Customers.AcctNum",
          "Customers LEFT JOIN " + other + " ON Customers." + field + " = " + other + "." + key + " WHERE (Customers." + field +
              " <> 0) AND ((" + other + "." + key + " Is Null) OR (" + other + "." + owner + " <> Customers.AcctNum))"};
}

std::vector<RowTest> CustomerTests() {
  std::vector<RowTest> tests = {
      OwnDefault("have a default phone that is none of their own", "DefaultPhoneNumber", "Phones", "RecordID", "AcctNum"),
      OwnDefault("have a default card that is none of their own", "DefaultCreditCard", "CustCreditCards", "CreditCardID", "AcctNum"),
      OwnDefault("have a default billing address that is none of their own", "DefaultBillAddress", "Addresses", "addressID", "Customer"),
      OwnDefault("have a default shipping address that is none of their own", "DefaultShipAddress", "Addresses", "addressID", "Customer"),
      {"are neither active nor inactive nor prospects", "Customers", "AcctNum", "Customers WHERE (Status < 0) OR (Status > 2)"},
      {"have a labor rate type other than N, C and D", "Customers", "AcctNum",
       "Customers WHERE (LaborRateType <> 'N') AND (LaborRateType <> 'C') AND (LaborRateType <> 'D')"},
      {"are their own parent", "SuperCustomers", "Primary", "SuperCustomers WHERE [Primary] = Subordinate"}};
  for (const char* field : {"TaxBasisA", "TaxBasisB", "TaxBasisC", "TaxBasisD"}) {
    tests.push_back(Missing(std::string("have a ") + field + " that is no tax rate", "Customers", "AcctNum", field, "TaxGrid", "TaxID",
                            std::string("Customers.") + field + " <> 0"));
  }
  return tests;
}

std::string Complaint(std::int64_t count, const std::string& table, const std::string& complaint, const std::string& field,
                      const std::vector<std::string>& examples) {
  std::string sentence = std::to_string(count) + (count == 1 ? " row of " : " rows of ") + table + " " + complaint + " (" + field + " ";
  for (std::size_t i = 0; i < examples.size(); ++i) sentence += (i > 0 ? ", " : "") + examples[i];
  return sentence + (count > static_cast<std::int64_t>(examples.size()) ? ", ...)." : ").");
}

/// Counts what is wrong and keeps the first few for the sentence.
class Findings {
 public:
  void Add(const platform::Value& value) {
    if (++count_ <= kExamples) examples_.push_back(value.IsNull() ? "Null" : platform::CStr(value));
  }
  void AddTo(std::vector<std::string>& sentences, const std::string& table, const std::string& complaint, const std::string& field) const {
    if (count_ > 0) sentences.push_back(Complaint(count_, table, complaint, field, examples_));
  }

 private:
  std::int64_t count_ = 0;
  std::vector<std::string> examples_;
};

void RunTest(const platform::DatabaseRef& database, const RowTest& test, std::vector<std::string>& sentences) {
  // A bare name could mean a field of the joined table.
  const bool qualified = test.shown.find('.') != std::string::npos;
  const std::string field = qualified ? test.shown : test.table + ".[" + test.shown + "]";
  const auto rows = database->OpenRecordset("SELECT " + field + " FROM " + test.from);
  Findings findings;
  for (; !rows->Eof(); rows->MoveNext()) findings.Add(rows->Field(0));
  rows->Close();
  findings.AddTo(sentences, test.table, test.complaint, qualified ? test.shown.substr(test.shown.find('.') + 1) : test.shown);
}

/// The numbers in a field of a table, sorted.
std::vector<std::int32_t> Numbers(const platform::DatabaseRef& database, const std::string& table, const std::string& field) {
  const auto rows = database->OpenRecordset("SELECT [" + field + "] FROM " + table + " WHERE [" + field + "] Is Not Null");
  std::vector<std::int32_t> numbers;
  for (; !rows->Eof(); rows->MoveNext()) numbers.push_back(platform::CLng(rows->Field(0)));
  rows->Close();
  std::sort(numbers.begin(), numbers.end());
  return numbers;
}

/// Rows of a file's table whose number is not among those of another file.
void CheckNumbers(const platform::DatabaseRef& database, const std::string& table, const std::string& field,
                  const std::vector<std::int32_t>& known, const std::string& complaint, std::vector<std::string>& sentences) {
  const auto rows = database->OpenRecordset("SELECT [" + field + "] FROM " + table);
  Findings findings;
  for (; !rows->Eof(); rows->MoveNext()) {
    const auto value = rows->Field(0);
    if (value.IsNull() || !std::binary_search(known.begin(), known.end(), platform::CLng(value))) findings.Add(value);
  }
  rows->Close();
  findings.AddTo(sentences, table, complaint, field);
}

std::set<std::string> Texts(const platform::DatabaseRef& database, const std::string& statement) {
  const auto rows = database->OpenRecordset(statement);
  std::set<std::string> texts;
  for (; !rows->Eof(); rows->MoveNext()) {
    if (!rows->Field(0).IsNull()) texts.insert(platform::CStr(rows->Field(0)));
  }
  rows->Close();
  return texts;
}

void CheckDepartments(const platform::DatabaseRef& customer, const std::set<std::string>& departments,
                      std::vector<std::string>& sentences) {
  const auto rows = customer->OpenRecordset("SELECT AcctNum, Dept FROM CustLaborRates");
  Findings findings;
  for (; !rows->Eof(); rows->MoveNext()) {
    const auto department = rows->Field(1);
    if (department.IsNull() || departments.count(platform::CStr(department)) == 0) findings.Add(rows->Field(0));
  }
  rows->Close();
  findings.AddTo(sentences, "CustLaborRates", "name a department that does not exist", "AcctNum");
}

/// Accounts of tax rates: eight digits, five of the account and three of the department; all zeros mean none.
void CheckTaxAccounts(const platform::DatabaseRef& customer, const std::set<std::string>& liabilities,
                      std::vector<std::string>& sentences) {
  const auto rows = customer->OpenRecordset("SELECT TaxID, GLMat, GLLab, GLOth FROM TaxGrid");
  Findings findings;
  for (; !rows->Eof(); rows->MoveNext()) {
    for (int i = 1; i <= 3; ++i) {
      const auto value = rows->Field(i);
      const std::string account = value.IsNull() ? "" : platform::CStr(value);
      if (account.empty() || account == "00000000") continue;
      if (liabilities.count(account.substr(0, 5)) == 0) findings.Add(rows->Field(0));
    }
  }
  rows->Close();
  findings.AddTo(sentences, "TaxGrid", "name an account that is no liability account", "TaxID");
}

void CheckLinks(const CheckedCompany& files, std::vector<std::string>& sentences) {
  for (const auto& link : engine::LinksOf(files.customer)) {
    const auto file = FileOfLink(link.name);
    if (file == suite::DataFile::Customer) continue;
    const std::string& own = file == suite::DataFile::Ledger ? files.ledger : files.transactions;
    if (IsSameFile(link.path, own)) continue;
    sentences.push_back("The link " + link.name + " of customer.zdb leads to " + link.path + " and not to " + own +
                        "; \"suitefiles relink\" puts it right.");
  }
}

void CheckUsers(const platform::DatabaseRef& customer, std::vector<std::string>& sentences) {
  const auto users = Numbers(customer, "UserStartup", "UserNum");
  Findings findings;
  for (std::size_t i = 1; i < users.size(); ++i) {
    if (users[i] == users[i - 1]) findings.Add(users[i]);
  }
  findings.AddTo(sentences, "UserStartup", "repeat a user who has a row already", "UserNum");
}

}  // namespace

std::vector<std::string> CheckReferences(const CheckedCompany& files, const std::function<void(const std::string&)>& working) {
  std::vector<std::string> sentences;
  DataAccess data;
  const auto customer = data.Open(files.customer);
  for (const auto& group : {OwnerTests(), CodeTests(), CustomerTests()}) {
    for (const auto& test : group) {
      working(test.table);
      RunTest(customer, test, sentences);
    }
  }
  CheckUsers(customer, sentences);

  const auto ledger = data.Open(files.ledger);
  CheckDepartments(customer, Texts(ledger, "SELECT DeptNumber FROM Departments"), sentences);
  CheckTaxAccounts(customer, Texts(ledger, "SELECT AccountNumber FROM Accounts WHERE AccountType = 'L'"), sentences);

  working("Transactions");
  CheckNumbers(data.Open(files.transactions), "Transactions", "AcctNum", Numbers(customer, "Customers", "AcctNum"),
               "name a customer that does not exist", sentences);
  CheckNumbers(data.Open(files.flatRate), "FRDeptTax", "TaxID", Numbers(customer, "TaxGrid", "TaxID"),
               "name a tax rate that does not exist", sentences);
  CheckLinks(files, sentences);
  return sentences;
}

}  // namespace suitefiles
