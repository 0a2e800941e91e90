// The highest memory of a process that does an ordinary day's work on one company's list. A process of its own for each
// figure, since memory that was once taken stays counted.
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "engine/engine.h"
#include "measure.h"
#include "options.h"
#include "platform/data/data.h"
#include "platform/services/data_path.h"

namespace {

constexpr const char* usage =
    "bench_memory [--write|--queries] DIR|postgresql://HOST/DATABASE/orv1/\n"
    "The highest memory of a day's work on the list, or on queries' results. --write changes the company: give it a copy.\n";

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

// On a server nothing is kept here but what the engine needs: what is counted is what comes to an engine that has opened the company.
void TellOf(const std::string& place, double empty, double opened) {
  const double peak = bench::PeakMemory();
  if (platform::IsServerPath(place))
    std::cout << "peak " << peak << " MiB, above the empty engine of " << opened << " MiB, which has opened the company: " << peak - opened
              << " MiB (the empty program: " << empty << " MiB); bar 16 MiB\n";
  else
    std::cout << "peak " << peak << " MiB, above the cache of " << cacheMegabytes << " MiB: " << peak - cacheMegabytes
              << " MiB (the empty program: " << empty << " MiB); bar 16 MiB\n";
}

}  // namespace

int main(int count, char** words) {
  return bench::RunProgram("bench_memory", usage, [&] {
    bool write = false, queries = false;
    const auto places = bench::OptionWords().Flag("--write", write).Flag("--queries", queries).Read(count, words);
    if (places.size() != 1) throw std::invalid_argument("DIR");
    const double empty = bench::PeakMemory();
    const auto engine = engine::MakeEngine();
    const auto workspace = engine->CreateWorkspace("bench", "Admin", "", 2);
    engine->AppendWorkspace(workspace);
    const std::string& place = places[0];
    const auto data = workspace->OpenDatabase(place + (platform::IsServerPath(place) ? "customer.zdb" : "/data/orv1/customer.zdb"));
    const double opened = bench::PeakMemory();
    if (queries)
      for (const std::string& statement : QueryResults()) {
        Work(*data, statement, false);
        std::cout << "so far " << bench::PeakMemory() << " MiB: " << statement << '\n';
      }
    else
      Work(*data, wholeList, write);
    TellOf(place, empty, opened);
  });
}
