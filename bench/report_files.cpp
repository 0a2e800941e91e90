// Reports into previews and files: the time to the first page on the screen, and values in a file beside a bare loop that writes the same.
#include <ctime>

#include <QApplication>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <iomanip>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "measure.h"
#include "printing/entry/report_engine.h"
#include "raw/store.h"
#include "report_services.h"

namespace {

namespace fs = std::filesystem;

double Milliseconds(clockid_t clock) {
  timespec time{};
  clock_gettime(clock, &time);
  return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

printing::EngineServices Services(const std::string& folder) {
  printing::EngineServices services;
  services.forRun = [folder] { return printing::RunServices{{folder, folder}, bench::ReportServices(folder)}; };
  services.log = [](const std::string& line) { std::cerr << line << '\n'; };
  return services;
}

platform::ReportJob CustomerList() {
  platform::ReportJob job;
  job.ReportFileName = "ARCusLst.Rpt";
  return job;
}

/// Notes when the pages of a preview have been painted.
class Painted final : public QObject {
 public:
  bool yes = false;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    const QObject* parent = watched->parent();
    const bool pages = event->type() == QEvent::Paint && parent && parent->inherits("printing::PageView");
    if (!pages || yes) return false;
    watched->removeEventFilter(this);
    // Behind the painting itself.
    QMetaObject::invokeMethod(
        this, [this] { yes = true; }, Qt::QueuedConnection);
    return false;
  }
};

void ShowFirstPages(const std::string& folder, std::size_t times) {
  const auto engine = printing::MakeReportEngine(Services(folder));
  std::vector<double> wall;
  std::vector<double> cpu;
  for (std::size_t i = 0; i < times; ++i) {
    Painted painted;
    qApp->installEventFilter(&painted);
    const double wallBefore = Milliseconds(CLOCK_MONOTONIC);
    const double cpuBefore = Milliseconds(CLOCK_PROCESS_CPUTIME_ID);
    if (engine->PrintReport(CustomerList()) != 0) throw std::runtime_error("the report was refused");
    while (!painted.yes) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    wall.push_back(Milliseconds(CLOCK_MONOTONIC) - wallBefore);
    cpu.push_back(Milliseconds(CLOCK_PROCESS_CPUTIME_ID) - cpuBefore);
    qApp->removeEventFilter(&painted);
    engine->CloseAll();
  }
  const double first = wall.front();
  const double firstWork = cpu.front();
  std::sort(wall.begin(), wall.end());
  std::sort(cpu.begin(), cpu.end());
  std::cout << std::fixed << std::setprecision(1) << "Customer list to its first page painted: the first time " << first << " ms (" << firstWork
            << " of processor time), median "
            << wall[times / 2] << " ms, worst " << wall.back() << " ms by the clock; median " << cpu[times / 2]
            << " ms of processor time (bar 150)\n"
            << std::flush;
}

std::string_view Trimmed(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

void PutText(std::string& to, std::string_view text) {
  if (!text.empty() && std::string_view("=+-@\t\r\n").find(text.front()) != std::string_view::npos) to += '\'';
  if (text.find_first_of(",\"\r\n") == std::string_view::npos) {
    to += text;
    return;
  }
  to += '"';
  for (const char c : text) {
    if (c == '"') to += '"';
    to += c;
  }
  to += '"';
}

/// The file as somebody who knows report and data would write it.
void WriteBare(bench::raw::Store& store, const std::string& path) {
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "wb"), std::fclose);
  if (!file) throw std::runtime_error("no file " + path);
  bench::raw::Statement rows(store.Handle(),
                             "SELECT AcctNum, FirstName, LastName, Addr1, City, State, Zip FROM f1.Customers INDEXED BY "
                             "\"Customers.xLastName\" ORDER BY LastName, AcctNum");
  std::string line = "Account,Name,Address,Town\r\n";
  std::string name;
  std::string town;
  while (rows.Step()) {
    name.assign(Trimmed(rows.Text(1))).append(" ").append(Trimmed(rows.Text(2)));
    town.assign(Trimmed(rows.Text(4)));
    if (!town.empty()) town.append(", ").append(rows.Text(5)).append("  ").append(Trimmed(rows.Text(6)));
    line += std::to_string(rows.Int(0));
    line += ',';
    PutText(line, Trimmed(name));
    line += ',';
    PutText(line, rows.Text(3));
    line += ',';
    PutText(line, town);
    line += "\r\n";
    constexpr std::size_t kBuffer = 1 << 16;
    if (line.size() < kBuffer) continue;
    std::fwrite(line.data(), 1, line.size(), file.get());
    line.clear();
  }
  std::fwrite(line.data(), 1, line.size(), file.get());
}

std::int64_t Customers(bench::raw::Store& store) {
  bench::raw::Statement count(store.Handle(), "SELECT count(*) FROM f1.Customers");
  count.Step();
  return count.Int(0);
}

bench::Job ValuesJob(const std::string& folder, bench::raw::Store& store, const fs::path& work) {
  bench::Job job;
  // Below, opening the report is most of it.
  constexpr std::int64_t kEnough = 1'000'000;
  const std::int64_t customers = Customers(store);
  job.name = "customer list as CSV, " + std::to_string(customers) + " customers";
  job.calls = 1;
  job.mostRatio = customers >= kEnough ? 1.5 : 0;
  const std::string ours = (work / "ours.csv").string();
  const std::string bare = (work / "bare.csv").string();
  job.ours = [folder, ours](int) {
    const auto goOn = [](std::int64_t) { return true; };
    if (printing::WriteReport(CustomerList(), Services(folder), ours, goOn) != 0) throw std::runtime_error("the report was refused");
    return static_cast<std::uint64_t>(fs::file_size(ours));
  };
  job.raw = [&store, bare](int) {
    WriteBare(store, bare);
    return static_cast<std::uint64_t>(fs::file_size(bare));
  };
  return job;
}

}  // namespace

int main(int count, char** words) {
  if (count < 3) {
    std::cerr << "bench_report_files DIR WORK [PAIRS]: previews and files of reports over company 1 of the folder; files go to WORK\n";
    return 2;
  }
  try {
    const QApplication toolkit(count, words);
    QApplication::setQuitOnLastWindowClosed(false);
    const std::string folder = words[1];
    const std::size_t pairs = count > 3 ? std::stoul(words[3]) : 5;
    ShowFirstPages(folder, 2 * pairs + 1);
    bench::raw::Store store(folder + "/data/orv1/customer.zdb");
    std::cout << bench::TableHead() << bench::TableLine(bench::Measure(ValuesJob(folder, store, words[2]), pairs)) << std::flush;
    std::cout << "peak memory " << bench::PeakMemory() << " MiB\n";
    return EXIT_SUCCESS;
  } catch (const std::exception& error) {
    std::cerr << "bench_report_files: " << error.what() << "\n";
    return EXIT_FAILURE;
  }
}
