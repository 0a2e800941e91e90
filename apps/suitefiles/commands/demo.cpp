#include <array>
#include <charconv>
#include <filesystem>
#include <iostream>

#include "engine/data_file.h"
#include "platform/values/calendar.h"
#include "streets/file/file_error.h"
#include "suitefiles/company/company_files.h"
#include "suitefiles/company/company_maker.h"
#include "suitefiles/company/data_access.h"
#include "suitefiles/company/report_files.h"
#include "suitefiles/company/staging.h"
#include "suitefiles/company/table_writer.h"
#include "suitefiles/demo/codes.h"
#include "suitefiles/demo/filler.h"
#include "suitefiles/demo/town_streets.h"
#include "suitefiles/program/command_line.h"
#include "suitefiles/program/commands.h"
#include "suitefiles/program/progress.h"

namespace suitefiles {

namespace {

struct DemoOptions {
  int company = 1;
  std::int32_t customers = 0;
  std::uint64_t seed = 1;
  int lastDay = 0;  ///< serial
};

int Part(const std::string& text, std::size_t at, std::size_t length) {
  int number = -1;
  const char* end = text.data() + at + length;
  const auto [stop, problem] = std::from_chars(text.data() + at, end, number);
  return problem == std::errc{} && stop == end ? number : -1;
}

int DayFromOption(const std::string& text) {
  const bool shaped = text.size() == 10 && text[4] == '-' && text[7] == '-';
  const auto date = shaped ? platform::DateSerial(Part(text, 0, 4), Part(text, 5, 2), Part(text, 8, 2)) : std::nullopt;
  if (!date) throw UsageError("option --date needs a day such as 2025-06-30, not \"" + text + "\"");
  return static_cast<int>(date->serial);
}

DemoOptions ReadOptions(const CommandLine& line) {
  DemoOptions options;
  options.company = static_cast<int>(line.RequiredNumber("--company", 1, 2147483647));
  options.customers = static_cast<std::int32_t>(line.RequiredNumber("--customers", 0, 100'000'000));
  options.seed = static_cast<std::uint64_t>(line.Number("--seed", 0, 9'000'000'000'000'000'000LL).value_or(1));
  options.lastDay = DayFromOption(line.Value("--date").value_or("2025-06-30"));
  return options;
}

/// The tables that the demo fills must be empty, so that nothing of an office is mixed with invented rows.
void RefuseUsedCompany(const std::string& customerFile, const std::string& transactionFile) {
  constexpr std::array<const char*, 14> kTables = {"Customers", "Phones",   "Addresses",      "CustCreditCards", "CustLaborRates",
                                                   "CustCodes", "Lookups",  "SuperCustomers", "DataCodes",       "Keywords",
                                                   "Locations", "TaxTypes", "TaxEntities",    "TaxGrid"};
  DataAccess data;
  const auto refuse = [](const std::string& file, const std::string& table, std::int64_t rows) {
    if (rows > 0) {
      throw CommandError(file + " has " + std::to_string(rows) + (rows == 1 ? " row" : " rows") + " in " + table +
                         " already; only a company without customers and codes is filled. Nothing was changed");
    }
  };
  const auto customers = data.Open(customerFile);
  for (const char* table : kTables) refuse(customerFile, table, CountRows(customers, table));
  refuse(transactionFile, "Transactions", CountRows(data.Open(transactionFile), "Transactions"));
}

void FillCompany(const DemoOptions& options, const std::string& customerFile, const std::string& transactionFile, const Console& console) {
  demo::AddDemoCodes(customerFile);
  const demo::World world(options.seed, options.lastDay);
  Progress progress(console);
  demo::Filler filler(world, options.customers, customerFile, transactionFile,
                      [&](const std::string& what, std::int64_t done, std::int64_t all) { progress.Show(what, done, all); });
  filler.Fill();
}

/// The map's file in the folder of the library. A map without streets is no reason to do without the company.
void MakeStreets(const DemoOptions& options, const std::string& folder, const Console& console) {
  namespace fs = std::filesystem;
  std::error_code problem;
  const auto base = fs::read_symlink("/proc/self/exe", problem).parent_path() / "../share/orcussch/map.zds";
  const std::string file = (fs::path(folder) / "streets.zds").string();
  const demo::World world(options.seed, options.lastDay);
  Progress progress(console);
  try {
    const int towns = demo::MakeTownStreets(world, options.customers, options.company, base.lexically_normal().string(), file,
                                            [&](std::int64_t done, std::int64_t all) { progress.Show("Streets", done, all); });
    progress.Clear();
    console.out << "Invented streets in " << towns << " ZIP codes (" << file << ").\n";
  } catch (const streets::FileError& failure) {
    progress.Clear();
    console.err << "suitefiles: no streets were made: " << failure.what() << "\n";
  }
}

CompanyRecord DemoCompany(int number) {
  return {number, "Lakes & Prairie Home Services", "2400 Industrial Blvd", "Minneapolis", "MN", "55413", "6125550100", "6125550101"};
}

void AddDefaultTerms(const std::string& datFile, int company) {
  constexpr std::int32_t kNet30 = 4;
  DataAccess data;
  const auto rows = data.Open(datFile)->OpenRecordset("SELECT CompID FROM AR WHERE CompID=" + std::to_string(company));
  const bool missing = rows->RecordCount() == 0;
  rows->Close();
  if (!missing) return;
  TableWriter writer(datFile, "AR", {"CompID", "PayTerms"});
  writer.Row(std::int32_t{company}, kNet30);
  writer.Finish();
}

}  // namespace

int RunDemo(const std::vector<std::string>& words, const Console& console) {
  const CommandLine line(words, {{"--company", true}, {"--customers", true}, {"--seed", true}, {"--date", true}});
  line.ExpectOperands({"DIR"});
  const auto options = ReadOptions(line);
  const DataFolder folder(line.Operands()[0]);
  const std::string customerFile = folder.File(options.company, suite::DataFile::Customer);
  const std::string transactionFile = folder.File(options.company, suite::DataFile::Transactions);
  const std::string dat = folder.File(options.company, suite::DataFile::Dat);

  if (engine::DataFileExists(customerFile)) {
    RefuseUsedCompany(customerFile, transactionFile);
    FillCompany(options, customerFile, transactionFile, console);
  } else {
    NewCompanyFiles files(folder, options.company);
    files.Make(platform::CalendarOf({static_cast<double>(options.lastDay)}).year);
    FillCompany(options, files.MakingPlaceOf(suite::DataFile::Customer), files.MakingPlaceOf(suite::DataFile::Transactions), console);
    AddCompanyRow(dat, DemoCompany(options.company));
    files.MoveIntoPlace();
  }
  AddDefaultTerms(dat, options.company);
  console.out << options.customers << " invented customers in company " << options.company << " (" << customerFile << ").\n";
  if (folder.OnServer()) return kDone;
  console.out << Told(PutReportFiles(folder.Path()));
  if (options.customers > 0) MakeStreets(options, folder.Path(), console);
  return kDone;
}

}  // namespace suitefiles
