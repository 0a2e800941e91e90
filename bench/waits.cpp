#include "waits.h"

#include <algorithm>
#include <chrono>
#include <functional>
#include <iomanip>
#include <sstream>
#include <vector>

namespace bench {
namespace {

using Clock = std::chrono::steady_clock;

double MillisecondsSince(Clock::time_point start) { return std::chrono::duration<double, std::milli>(Clock::now() - start).count(); }

struct LongJob {
  std::string name;
  std::function<void(int round)> work;
};

std::vector<LongJob> LongJobs(Company& company) {
  const auto list = std::make_shared<platform::RecordsetRef>(company.OpenList());
  const auto open = [&company](const std::string& statement) {
    const auto opened = company.Data().OpenRecordset(statement);
    opened->Window().RowsAt(0, 50);
    opened->Close();
  };
  return {
      {"FindFirst, text that is nowhere inside Comments",
       [list](int round) { (*list)->FindFirst("Comments Like '*qz" + std::to_string(round) + "y*'"); }},
      {"FindFirst, one half of all rows by an indexed field (NonBillable)",
       [list](int round) { (*list)->FindFirst("NonBillable = 0 And Comments Like '*qz" + std::to_string(round) + "y*'"); }},
      {"order by a field without index, first 50 rows", [open](int) { open("SELECT * FROM Customers ORDER BY Addr1"); }},
      {"a list with a filter that few rows pass, first 50 rows",
       [open](int) { open("SELECT * FROM Customers WHERE Comments Like '*qzy*' ORDER BY LastName"); }},
      {"a list that another table filters, first 50 rows",
       [open](int) {
         open(
             "SELECT DISTINCTROW Customers.* FROM Customers INNER JOIN Phones ON Customers.AcctNum = Phones.AcctNum "
             "WHERE Phones.Area Like '61*' ORDER BY Customers.LastName");
       }},
      {"MoveLast and RecordCount of a list just opened",
       [&company](int) {
         const auto opened = company.OpenList();
         opened->MoveLast();
         opened->RecordCount();
         opened->Close();
       }},
  };
}

double Median(std::vector<double> numbers) {
  std::ranges::sort(numbers);
  return numbers[numbers.size() / 2];
}

}  // namespace

std::string WaitTable(Company& company, std::size_t rounds) {
  std::ostringstream table;
  table << std::fixed << std::setprecision(1)
        << "| job | whole job, ms | painting served, times | longest wait for it, ms | worst of all, ms |\n"
           "| --- | ---: | ---: | ---: | ---: |\n";
  Clock::time_point last;
  double longest = 0;
  int served = 0;
  company.Engine().OnWait([&] {
    longest = std::max(longest, MillisecondsSince(last));
    ++served;
    last = Clock::now();
  });
  for (const LongJob& job : LongJobs(company)) {
    std::vector<double> totals, waits;
    for (std::size_t round = 0; round < rounds; ++round) {
      longest = 0;
      served = 0;
      const auto start = last = Clock::now();
      job.work(static_cast<int>(round));
      longest = std::max(longest, MillisecondsSince(last));
      totals.push_back(MillisecondsSince(start));
      waits.push_back(longest);
    }
    table << "| " << job.name << " | " << Median(totals) << " | " << served << " | " << Median(waits) << " | "
          << *std::ranges::max_element(waits) << " |\n";
  }
  company.Engine().OnWait({});
  return table.str();
}

}  // namespace bench
