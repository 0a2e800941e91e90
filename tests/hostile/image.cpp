#include "hostile/image.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <vector>

#include "engine/data_file.h"
#include "support/company.h"
#include "support/test_server.h"

namespace hostile {
namespace {

namespace fs = std::filesystem;
using platform::Value;
using Rows = std::vector<std::vector<Value>>;

constexpr const char* kPattern = "pattern";
constexpr std::int32_t kCustomers = 8;
constexpr const char* kLastNames[kCustomers] = {"Ames", "Bell", "Cole", "Dunn", "Estes", "Ford", "Gray", "Hale"};
constexpr const char* kFirstNames[kCustomers] = {"Ann", "Bob", "Cara", "Dan", "Eve", "Fay", "Gus", "Hal"};

/// A folder in memory is some ten times as fast as a disk.
std::string NewFolder() {
  const fs::path memory = "/dev/shm";
  const bool usable = ::access(memory.c_str(), W_OK | X_OK) == 0;
  std::string name = ((usable ? memory : fs::temp_directory_path()) / "hostile-XXXXXX").string();
  if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
  return fs::canonical(name).string();
}

void Add(const std::string& file, const std::string& table, const std::vector<std::string>& fields, const Rows& rows) {
  const auto writer = engine::OpenBulkWriter(file, table, fields);
  for (const auto& row : rows) writer->Add(row);
  writer->Finish();
}

Rows Customers() {
  Rows rows;
  for (std::int32_t acct = 1; acct <= kCustomers; ++acct) {
    const std::string last = kLastNames[acct - 1];
    rows.push_back({acct,
                    last,
                    kFirstNames[acct - 1],
                    acct % 2 == 0 ? "Mr." : "Ms.",
                    std::to_string(acct) + " Main St",
                    "Suite " + last,
                    "City " + last,
                    "MN",
                    "5540" + std::to_string(acct),
                    std::int32_t{1},
                    std::int16_t{0},
                    acct == kNonBillable,
                    acct == kCustomerWithoutRates ? "N" : "D",
                    std::int32_t{1},
                    std::int32_t{2},
                    acct * 10 + 1,
                    acct * 10 + 1,
                    acct * 10 + 1,
                    "Memo of " + last,
                    acct == 1 ? "U-1" : ""});
  }
  return rows;
}

void AddSubRecords(const std::string& file) {
  Rows phones, addresses, cards, rates, codes, words;
  for (std::int32_t acct = 1; acct <= kCustomers; ++acct) {
    const std::string number = std::to_string(acct);
    for (std::int32_t i = 1; i <= 3; ++i) {
      const std::string nth = std::to_string(i);
      phones.push_back({acct * 10 + i, acct, "61" + nth, "555" + number + "00" + nth, "", i == 2 ? "H" : "W", "Phone of " + number});
      addresses.push_back({acct * 10 + i, acct, nth + " Side St", "Of " + number, "Town " + nth, "WI", "5400" + nth, "USA", "None",
                           std::int16_t{0}, std::int16_t{0}});
      cards.push_back({acct * 10 + i, acct, i == 1 ? "M" : "V", "400000000" + number + nth, "Holder " + number + nth, "12", "2030",
                       Value(platform::Currency{0}), ""});
    }
    if (acct != kCustomerWithoutRates)
      for (const char* dept : {"100", "110", "200"}) rates.push_back({acct, dept, static_cast<double>(acct)});
    for (std::int16_t code = 1; code < kFreeType; ++code)
      if ((acct + code) % 2 == 0) codes.push_back({acct, code});
    for (const char* word : {"Boiler", "Sink"})
      if (acct % 2 == 1 || *word == 'S') words.push_back({acct, word});
  }
  Add(file, "Phones", {"RecordID", "AcctNum", "Area", "Phone", "Ext", "Type", "Comment"}, phones);
  Add(file, "Addresses",
      {"addressID", "Customer", "Addr1", "Addr2", "City", "State", "Zip", "Country", "Comment", "ActiveMonthLow", "ActiveMonthHigh"},
      addresses);
  Add(file, "CustCreditCards", {"CreditCardID", "AcctNum", "CCType", "CCNumber", "CCHolder", "CCMonth", "CCYear", "CCLimit", "CCComment"},
      cards);
  Add(file, "CustLaborRates", {"AcctNum", "Dept", "Adjustment"}, rates);
  Add(file, "CustCodes", {"AcctNum", "CustCodes"}, codes);
  Add(file, "Lookups", {"AcctNum", "Text"}, words);
}

void AddCodes(const std::string& file) {
  Rows types;
  for (std::int16_t code = 1; code <= kFreeType; ++code) types.push_back({code, "Type " + std::to_string(code)});
  Add(file, "DataCodes", {"Code", "Description"}, types);
  Add(file, "Keywords", {"Keyword"}, {{"Boiler"}, {"Drain"}, {"Pump"}, {"Sink"}, {kFreeWord}});
  Add(file, "PhoneTypes", {"Type", "TypeDescription"}, {{"7", "Free"}});
  Add(file, "CreditCardTypes", {"CreditCardType", "CreditCardName", "BankCharge"}, {{"7", "Free", 1.0}});
  Add(file, "Locations", {"MapCode", "Location"}, {{"A-1", "Town"}, {"F-7", "Free"}, {"U-1", "Used"}, {"Z-9", "Last"}});
  Add(file, "TaxTypes", {"TaxType", "TypeDescription", "TypeCode"}, {{std::int32_t{1}, "Sales", "S"}, {std::int32_t{2}, "Free", "O"}});
  Add(file, "TaxEntities", {"TaxEntity", "EntityDescription"}, {{std::int32_t{1}, "State"}, {std::int32_t{2}, "Free"}});
  Rows taxes;
  for (std::int32_t tax = 1; tax <= 5; ++tax) taxes.push_back({tax, "Tax " + std::to_string(tax), std::int32_t{1}, std::int32_t{1}});
  Add(file, "TaxGrid", {"TaxID", "Description", "TaxType", "TaxEntity"}, taxes);
  // After a new customer the screen goes on to his first phone.
  Add(file, "UserStartup", {"UserNum", "StartGrid", "QueryTab", "QueryField", "AddPhone"},
      {{std::int32_t{1}, false, std::int16_t{0}, std::int16_t{0}, true}});
}

void FillCompany(const std::string& books) {
  const std::string file = books + "/customer.zdb";
  Add(file, "Customers",
      {"AcctNum",
       "LastName",
       "FirstName",
       "Title",
       "Addr1",
       "Addr2",
       "City",
       "State",
       "Zip",
       "Terms",
       "Status",
       "NonBillable",
       "LaborRateType",
       "TaxBasisA",
       "TaxBasisB",
       "DefaultPhoneNumber",
       "DefaultShipAddress",
       "DefaultCreditCard",
       "Comments",
       "MapCode"},
      Customers());
  AddSubRecords(file);
  AddCodes(file);
  Add(books + "/artrans.zdb", "Transactions", {"AcctNum", "TranType", "InvChkCredNo", "AltInvNo"},
      {{kCustomerWithTransactions, "I", "1001", std::int32_t{1}}});
}

void AddReports(const std::string& folder) {
  for (const char* report :
       {"ARCusDet.Rpt", "ARCusPho.Rpt", "ARAltAdr.Rpt", "ARCustCC.Rpt", "ARLabRat.Rpt", "ARCusCod.Rpt", "ARCustKW.Rpt"})
    std::ofstream(fs::path(folder) / report) << "a report";
}

}  // namespace

Image::Image(bool onServer) : root_(NewFolder()), onServer_(onServer) {
  test_support::MakeCompany(Pattern());
  if (onServer)
    MoveToServer();
  else
    FillCompany(Pattern() + "data/orv1");
  AddReports(Pattern());
  Restore();
}

Image::~Image() {
  std::error_code ignored;
  fs::remove_all(root_, ignored);
}

std::string Image::PlaceOf(const char* database) { return TestServer::Shared().PathOf(database); }

// The company's files go: nothing may be read from them.
void Image::MoveToServer() const {
  ::setenv("PGUSER", "office", 1);
  TestServer::Shared().CreateDatabase(kPattern);
  const std::string books = PlaceOf(kPattern) + "orv1";
  suitefiles::MakeCompanyFiles(books, 2025);
  suitefiles::CompanyRecord company;
  company.name = "Company 1";
  suitefiles::AddCompanyRow(books + "/dat.zdb", company);
  FillCompany(books);
  fs::remove_all(Pattern() + "data");
  fs::remove(Pattern() + "dat.zdb");
  std::ofstream(Pattern() + "orv1.ini") << "[Databases]\nDefault Path=" << PlaceOf(kNow) << "orv1/\n";
}

void Image::Restore() const {
  fs::remove_all(Folder());
  fs::copy(Pattern(), Folder(), fs::copy_options::recursive);
  if (!onServer_) return;
  TestServer::Shared().DropDatabase(kNow);
  TestServer::Shared().CreateDatabase(kNow, kPattern);
}

}  // namespace hostile
