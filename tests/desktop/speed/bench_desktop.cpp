#include <ctime>

#include <QApplication>
#include <QElapsedTimer>
#include <QScrollBar>
#include <QTimer>
#include <QWheelEvent>
#include <algorithm>
#include <fstream>
#include <iostream>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include "desktop/hands/input.h"
#include "desktop/list/list_view.h"
#include "desktop/window/front_end.h"
#include "engine/engine.h"
#include "entry/screens.h"
#include "maintenance/frmCustMain.h"
#include "session/CustSearch.h"
#include "session/ModCustSch.h"
#include "suite/error_log.h"
#include "suite/operating_system.h"

// The main screen's frames on a real company: bench_desktop DIR [USER [cold]]. DIR holds dat.zdb, or an ini that leads to it, and the user's
// temporary file. "cold": the first opening of the process alone.
namespace {

constexpr int kRounds = 101;
constexpr std::size_t kOpenings = 22;

/// By the clock and by the processor time of the process, which other work on the machine disturbs least; milliseconds.
struct Frame {
  double wall = 0, cpu = 0;
};

class Watch {
 public:
  void Start() {
    timer_.start();
    cpu_ = Cpu();
  }
  Frame Passed() const { return {static_cast<double>(timer_.nsecsElapsed()) / 1e6, Cpu() - cpu_}; }

 private:
  static double Cpu() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
  }
  QElapsedTimer timer_;
  double cpu_ = 0;
};

void Print(const std::string& job, const std::vector<Frame>& frames) {
  std::vector<double> wall, cpu;
  for (const Frame& frame : frames) {
    wall.push_back(frame.wall);
    cpu.push_back(frame.cpu);
  }
  std::sort(wall.begin(), wall.end());
  std::sort(cpu.begin(), cpu.end());
  std::cout << "| " << job << " | " << wall[wall.size() / 2] << " | " << wall[wall.size() * 9 / 10] << " | " << wall.back() << " | "
            << cpu[cpu.size() / 2] << " | " << cpu.back() << " |\n"
            << std::flush;
}

long ResidentKilobytes() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);)
    if (line.rfind("VmRSS:", 0) == 0) return std::stol(line.substr(6));
  return 0;
}

/// Works in the open screen.
class Measurement {
 public:
  Measurement(desktop::DesktopFrontEnd& front, const Watch& opening, std::vector<Frame>& openings, bool cold)
      : front_(front), opening_(opening), openings_(openings), cold_(cold) {}

  /// Waits for the screen's handlers to end, which yield.
  void Begin() {
    const orcussch::frmCustMain* screen = orcussch::screens::frmCustMain.peek();
    if (!screen || !screen->data[0].Window() || screen->Busy()) {
      QTimer::singleShot(0, [this] { Begin(); });
    } else {
      Run();
    }
  }

 private:
  void Run() {
    orcussch::frmCustMain& screen = *orcussch::screens::frmCustMain;
    window_ = front_.WindowOf(screen);
    list_ = window_->findChild<desktop::ListView*>("grid_0");
    Paint();
    openings_.push_back(opening_.Passed());
    if (list_->Rows().Count() == 0) throw std::runtime_error("no rows are painted");
    if (cold_ || openings_.size() < kOpenings) return screen.UserClose();
    Print("ShowUser to painted list, the first time", {openings_.front()});
    Print("ShowUser to painted list", {openings_.begin() + 1, openings_.end()});
    EnginePage(screen);
    Search(screen, "key press to found row painted, before idle work");
    Wheel("wheel notch, before idle work");
    IdleWork();
    Search(screen, "key press to found row painted");
    Wheel("wheel notch");
    Bar();
    PageKeys();
    Query(screen, "last name starts with", "Customers WHERE (Customers.LastName Like 'Smi*')");
    Query(screen, "address contains", "Customers WHERE ((Customers.Addr1 Like '*Main*') OR (Customers.Addr2 Like '*Main*'))");
    Query(screen, "phone area", "Customers INNER JOIN Phones ON Customers.AcctNum = Phones.AcctNum WHERE (Phones.Area Like '952*')");
    Query(screen, "invoice number",
          "Customers INNER JOIN Transactions ON Customers.AcctNum = Transactions.AcctNum WHERE (Transactions.TranType<>'P') And "
          "(Transactions.InvChkCredNo = '100058')");
    std::cout << "\nrows " << list_->Rows().Count() << ", resident " << ResidentKilobytes() / 1024 << " MiB\n";
    screen.UserClose();
  }

  void Paint() {
    list_->Sync();
    list_->viewport()->repaint();
  }

  void EnginePage(orcussch::frmCustMain& screen) {
    std::vector<Frame> times;
    for (int i = 0; i < kRounds; ++i) {
      Watch timer;
      timer.Start();
      screen.data[0].Window()->RowsAt(0, 50);
      times.push_back(timer.Passed());
    }
    Print("the engine's first page", times);
  }

  void Search(orcussch::frmCustMain& screen, const std::string& job) {
    std::mt19937 random(7);
    std::vector<Frame> times;
    QWidget* box = window_->findChild<QWidget*>("txtSearch_0");
    for (int i = 0; i < kRounds; ++i) {
      platform::RowWindow& rows = *screen.data[0].Window();
      const auto any = rows.RowsAt(static_cast<std::int64_t>(random() % static_cast<unsigned>(rows.Count())), 1);
      const platform::Value& name = any.front().cells.at(static_cast<std::size_t>(screen.data[0].Recordset()->FieldIndex("LastName")));
      screen.txtSearch[0].Text(name.As<std::string>().substr(0, 4));
      box->setFocus();
      Watch timer;
      timer.Start();
      desktop::input::Key(*window_, Qt::Key_Return, Qt::NoModifier, "\r");
      Paint();
      times.push_back(timer.Passed());
    }
    Print(job, times);
  }

  void Wheel(const std::string& job) {
    std::vector<Frame> times;
    for (int i = 0; i < kRounds * 3; ++i) {
      Watch timer;
      timer.Start();
      QWheelEvent wheel({50, 50}, list_->mapToGlobal(QPointF(50, 50)), {}, {0, i % 3 == 0 ? 120 : -120}, Qt::NoButton, Qt::NoModifier,
                        Qt::NoScrollPhase, false);
      QApplication::sendEvent(list_->viewport(), &wheel);
      list_->viewport()->repaint();
      times.push_back(timer.Passed());
    }
    Print(job, times);
  }

  void IdleWork() {
    Watch timer;
    timer.Start();
    std::vector<Frame> slices;
    bool left = true;
    while (left) {
      Watch slice;
      slice.Start();
      left = list_->IdleSlice();
      slices.push_back(slice.Passed());
    }
    Print("idle slices (" + std::to_string(slices.size()) + " in " + std::to_string(static_cast<int>(timer.Passed().wall)) + " ms)",
          slices);
  }

  void Bar() {
    std::mt19937 random(11);
    std::vector<Frame> times;
    for (int i = 0; i < kRounds; ++i) {
      Watch timer;
      timer.Start();
      list_->verticalScrollBar()->setValue(static_cast<int>(random() % static_cast<unsigned>(list_->verticalScrollBar()->maximum() + 1)));
      list_->viewport()->repaint();
      times.push_back(timer.Passed());
    }
    Print("scroll bar to a random place", times);
  }

  /// A query as the query screen leaves it: the list is opened when it is run, and again when this screen becomes active. Both happen
  /// in handlers, during which idle work waits.
  void Query(orcussch::frmCustMain& screen, const std::string& name, const std::string& from) {
    constexpr int kRuns = 11;
    std::vector<Frame> times;
    for (int i = 0; i < kRuns; ++i) {
      orcussch::gQuerySQL.clear();
      screen.SQLData(0);
      orcussch::gQuerySQL = "Select DISTINCTROW Customers.* FROM " + from;
      Watch timer;
      timer.Start();
      screen.Host().Act(screen, [&screen] { screen.SQLData(0); });
      screen.Host().Act(screen, [&screen] { screen.SQLData(0); });
      Paint();
      times.push_back(timer.Passed());
    }
    orcussch::gQuerySQL.clear();
    screen.SQLData(0);
    Print("query run and activation to painted list: " + name, times);
  }

  void PageKeys() {
    std::vector<Frame> times;
    list_->setFocus();
    for (int i = 0; i < kRounds; ++i) {
      Watch timer;
      timer.Start();
      desktop::input::Key(*window_, i % 4 == 3 ? Qt::Key_PageUp : Qt::Key_PageDown, Qt::NoModifier);
      Paint();
      times.push_back(timer.Passed());
    }
    Print("page key", times);
  }

  desktop::DesktopFrontEnd& front_;
  const Watch& opening_;
  std::vector<Frame>& openings_;
  bool cold_;
  desktop::FormWindow* window_ = nullptr;
  desktop::ListView* list_ = nullptr;
};

}  // namespace

int main(int count, char** words) {
  if (count < 2) {
    std::cerr << "bench_desktop DIR [USER [cold]]\n";
    return 2;
  }
  Watch process;
  process.Start();
  try {
    platform::ApplicationParts parts;
    auto made = std::make_unique<desktop::DesktopFrontEnd>(desktop::DesktopOptions{"", "", true, "light"});
    desktop::DesktopFrontEnd& front = *made;
    parts.frontEnd = std::move(made);
    parts.system = suite::MakeNativeSystem(words[1]);
    parts.engine = engine::MakeEngine();
    parts.errorLog = suite::MakeErrorLog("/dev/null");
    parts.path = words[1];
    platform::Application app(std::move(parts));
    orcussch::ConnectScreens();
    orcussch::CustSearch session(app);
    session.UserID(count > 2 ? words[2] : "1");
    session.CompanyID(1);
    const bool cold = count > 3 && std::string(words[3]) == "cold";
    if (!cold)
      std::cout << "| job | median ms | 90th percentile | worst | median, processor | worst, processor |\n"
                   "| --- | ---: | ---: | ---: | ---: | ---: |\n";
    std::vector<Frame> openings;
    while (openings.size() < (cold ? 1 : kOpenings)) {
      Watch opening;
      Measurement measurement(front, opening, openings, cold);
      QTimer::singleShot(0, [&] { measurement.Begin(); });
      opening.Start();
      session.ShowUser();
    }
    if (cold) {
      Print("ShowUser to painted list, cold process", openings);
      Print("the same with all that stands before it, and closing", {process.Passed()});
    }
  } catch (const std::exception& error) {
    std::cerr << error.what() << "\n";
    return 1;
  }
  return 0;
}
