// The highest memory of a process that does an ordinary day's work on one company's list. A process of its own for each
// figure, since memory that was once taken stays counted.
#include <cstdlib>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include "engine/engine.h"
#include "measure.h"
#include "platform/data/data.h"

namespace {

constexpr double cacheMegabytes = 8;
constexpr int walkedRows = 20'000;
constexpr int saves = 500;

const std::string wholeList = "SELECT * FROM Customers ORDER BY LastName";

// Results of a query of every size.
std::vector<std::string> QueryResults() {
  const auto joined = [](const std::string& table, const std::string& where) {
    return "Select DISTINCTROW Customers.* FROM Customers INNER JOIN " + table + " ON Customers.AcctNum = " + table + ".AcctNum WHERE " +
           where + " ORDER BY LastName;";
  };
  return {"Select DISTINCTROW Customers.* FROM Customers WHERE (Customers.CurrBalance>=0) ORDER BY LastName;",
          "Select DISTINCTROW Customers.* FROM Customers WHERE (Customers.EntryDate>=#6/1/1995#) ORDER BY LastName;",
          "Select DISTINCTROW Customers.* FROM Customers WHERE (Customers.State Like 'MN') ORDER BY LastName;",
          "Select DISTINCTROW Customers.* FROM Customers WHERE ((Customers.Addr1 Like '*Main*') OR (Customers.Addr2 Like '*Main*')) ORDER "
          "BY LastName;",
          joined("Phones", "(Phones.Area Like '952*')"),
          joined("Phones", "(Phones.Area Like '6*')"),
          joined("Lookups", "(Lookups.Text = 'Boiler')"),
          joined("CustCodes", "(CustCodes.CustCodes = 5 OR CustCodes.CustCodes = 6)")};
}

void Work(platform::Database& data, const std::string& statement, bool write) {
  const auto list = data.OpenRecordset(statement);
  auto& window = list->Window();
  while (window.IdleSlice()) {
  }
  const std::int64_t rows = window.Count();
  for (int i = 0; i < 200; ++i) window.RowsAt(rows * i / 200, 50);
  window.LastRows(50);
  list->FindFirst("LastName Like 'Smi*'");
  for (int i = 0; i < 200 && !list->NoMatch(); ++i) list->FindNext("LastName Like 'Smi*'");
  list->MoveFirst();
  for (int i = 0; i < walkedRows && !list->Eof(); ++i) list->MoveNext();
  const auto table = data.OpenRecordset("Customers", platform::RecordsetType::Table);
  table->SetIndex("ByAcct");
  for (std::int32_t account = 1; account <= rows; account += static_cast<std::int32_t>(rows / 1000 + 1)) table->Seek("=", {account});
  table->Close();
  for (std::int32_t i = 0; write && i < saves; ++i) {
    list->FindFirst("[AcctNum]=" + std::to_string(1 + i));
    if (list->NoMatch()) continue;
    list->Edit();
    list->SetField("Addr2", "Suite " + std::to_string(i));
    list->Update();
  }
  // A recordset lives until it is closed, as a screen does with its list when it takes another.
  list->Close();
}

}  // namespace

int main(int count, char** words) {
  if (count < 2) {
    std::cerr << "bench_memory DIR [--write|--queries]\n";
    return 2;
  }
  try {
    const double before = bench::PeakMemory();
    const auto engine = engine::MakeEngine();
    const auto workspace = engine->CreateWorkspace("bench", "Admin", "", 2);
    engine->AppendWorkspace(workspace);
    const auto data = workspace->OpenDatabase(std::string(words[1]) + "/data/orv1/customer.zdb");
    const std::string option = count > 2 ? words[2] : "";
    if (option == "--queries")
      for (const std::string& statement : QueryResults()) {
        Work(*data, statement, false);
        std::cout << "so far " << bench::PeakMemory() << " MiB: " << statement << '\n';
      }
    else
      Work(*data, wholeList, option == "--write");
    const double peak = bench::PeakMemory();
    std::cout << "peak " << peak << " MiB, above the cache of " << cacheMegabytes << " MiB: " << peak - cacheMegabytes
              << " MiB (the empty program: " << before << " MiB); bar 16 MiB\n";
    return EXIT_SUCCESS;
  } catch (const std::exception& error) {
    std::cerr << "bench_memory: " << error.what() << "\n";
    return EXIT_FAILURE;
  }
}
