#include "waits.h"

#include <ctime>

#include <algorithm>
#include <functional>
#include <iomanip>
#include <sstream>
#include <vector>

namespace bench {
namespace {

/// By the clock, and by the processor time of the process, which other work on the machine disturbs least; milliseconds.
struct Moment {
  double wall = 0, cpu = 0;

  static Moment Now() { return {Of(CLOCK_MONOTONIC), Of(CLOCK_PROCESS_CPUTIME_ID)}; }
  Moment operator-(const Moment& earlier) const { return {wall - earlier.wall, cpu - earlier.cpu}; }

 private:
  static double Of(clockid_t clock) {
    timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
  }
};

/// The longest stretch between two moments at which painting was served.
class Stretch {
 public:
  void Begin() {
    longest_ = {};
    served_ = 0;
    last_ = Moment::Now();
  }
  void Served() {
    End();
    ++served_;
    last_ = Moment::Now();
  }
  void End() {
    const Moment now = Moment::Now() - last_;
    longest_ = {std::max(longest_.wall, now.wall), std::max(longest_.cpu, now.cpu)};
  }
  Moment Longest() const { return longest_; }
  int Times() const { return served_; }

 private:
  Moment last_, longest_;
  int served_ = 0;
};

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
      {"a list that another table filters, which no row passes",
       [open](int) {
         open(
             "SELECT DISTINCTROW Customers.* FROM Customers INNER JOIN Phones ON Customers.AcctNum = Phones.AcctNum "
             "WHERE Phones.Phone Like '*x*' ORDER BY Customers.LastName");
       }},
      {"MoveLast and RecordCount of one half of all",
       [&company](int) {
         const auto opened = company.Data().OpenRecordset("SELECT * FROM Customers WHERE CurrBalance > 100 ORDER BY LastName");
         opened->MoveLast();
         opened->RecordCount();
         opened->Close();
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
        << "| job | whole job, ms | processor | painting served, times | longest wait for it, ms | processor | worst of all, processor |\n"
           "| --- | ---: | ---: | ---: | ---: | ---: | ---: |\n";
  Stretch stretch;
  company.Engine().OnWait([&] { stretch.Served(); });
  for (const LongJob& job : LongJobs(company)) {
    std::vector<double> total, totalCpu, wait, waitCpu;
    for (std::size_t round = 0; round < rounds; ++round) {
      const Moment start = Moment::Now();
      stretch.Begin();
      job.work(static_cast<int>(round));
      stretch.End();
      const Moment whole = Moment::Now() - start;
      total.push_back(whole.wall);
      totalCpu.push_back(whole.cpu);
      wait.push_back(stretch.Longest().wall);
      waitCpu.push_back(stretch.Longest().cpu);
    }
    table << "| " << job.name << " | " << Median(total) << " | " << Median(totalCpu) << " | " << stretch.Times() << " | " << Median(wait)
          << " | " << Median(waitCpu) << " | " << *std::ranges::max_element(waitCpu) << " |\n";
  }
  company.Engine().OnWait({});
  return table.str();
}

}  // namespace bench
