#include <QApplication>
#include <QElapsedTimer>
#include <QScrollBar>
#include <QTimer>
#include <QWheelEvent>
#include <algorithm>
#include <fstream>
#include <iostream>
#include <random>
#include <string>
#include <vector>

#include "desktop/front_end.h"
#include "desktop/hands/input.h"
#include "desktop/list/list_view.h"
#include "engine/engine.h"
#include "maintenance/frmCustMain.h"
#include "session/CustSearch.h"
#include "session/ModCustSch.h"
#include "suite/accounts_lookup.h"
#include "suite/error_log.h"
#include "suite/operating_system.h"

// The main screen's frames on a real company: bench_desktop DIR [USER]. DIR holds dat.zdb and the user's temporary file.
namespace {

constexpr int kRounds = 101;

double Milliseconds(const QElapsedTimer& timer) { return static_cast<double>(timer.nsecsElapsed()) / 1e6; }

void Print(const std::string& job, std::vector<double> times) {
  std::sort(times.begin(), times.end());
  std::cout << "| " << job << " | " << times[times.size() / 2] << " | " << times[times.size() * 9 / 10] << " | " << times.back() << " |\n"
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
  Measurement(desktop::DesktopFrontEnd& front, QElapsedTimer& opening) : front_(front), opening_(opening) {}

  /// Waits for the screen's handlers to end, which yield.
  void Begin() {
    const orcussch::frmCustMain* screen = orcussch::screens::frmCustMain.peek();
    if (!screen || !screen->data[0].Window() || screen->App().Busy(*screen)) {
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
    Print("ShowUser to painted list", {Milliseconds(opening_)});
    EnginePage(screen);
    Search(screen, "key press to found row painted, before idle work");
    Wheel("wheel notch, before idle work");
    IdleWork();
    Search(screen, "key press to found row painted");
    Wheel("wheel notch");
    Bar();
    PageKeys();
    std::cout << "\nrows " << list_->Rows().Count() << ", resident " << ResidentKilobytes() / 1024 << " MiB\n";
    screen.UserClose();
  }

  void Paint() {
    list_->Sync();
    list_->viewport()->repaint();
  }

  void EnginePage(orcussch::frmCustMain& screen) {
    std::vector<double> times;
    for (int i = 0; i < kRounds; ++i) {
      QElapsedTimer timer;
      timer.start();
      screen.data[0].Window()->RowsAt(0, 50);
      times.push_back(Milliseconds(timer));
    }
    Print("the engine's first page", times);
  }

  void Search(orcussch::frmCustMain& screen, const std::string& job) {
    std::mt19937 random(7);
    std::vector<double> times;
    QWidget* box = window_->findChild<QWidget*>("txtSearch_0");
    for (int i = 0; i < kRounds; ++i) {
      platform::RowWindow& rows = *screen.data[0].Window();
      const auto any = rows.RowsAt(static_cast<std::int64_t>(random() % static_cast<unsigned>(rows.Count())), 1);
      const platform::Value& name = any.front().cells.at(static_cast<std::size_t>(screen.data[0].Recordset().FieldIndex("LastName")));
      screen.txtSearch[0].Text(name.As<std::string>().substr(0, 4));
      box->setFocus();
      QElapsedTimer timer;
      timer.start();
      desktop::input::Key(*window_, Qt::Key_Return, Qt::NoModifier, "\r");
      Paint();
      times.push_back(Milliseconds(timer));
    }
    Print(job, times);
  }

  void Wheel(const std::string& job) {
    std::vector<double> times;
    for (int i = 0; i < kRounds * 3; ++i) {
      QElapsedTimer timer;
      timer.start();
      QWheelEvent wheel({50, 50}, list_->mapToGlobal(QPointF(50, 50)), {}, {0, i % 3 == 0 ? 120 : -120}, Qt::NoButton, Qt::NoModifier,
                        Qt::NoScrollPhase, false);
      QApplication::sendEvent(list_->viewport(), &wheel);
      list_->viewport()->repaint();
      times.push_back(Milliseconds(timer));
    }
    Print(job, times);
  }

  void IdleWork() {
    QElapsedTimer timer;
    timer.start();
    std::vector<double> slices;
    bool left = true;
    while (left) {
      QElapsedTimer slice;
      slice.start();
      left = list_->IdleSlice();
      slices.push_back(Milliseconds(slice));
    }
    Print("idle slices (" + std::to_string(slices.size()) + " in " + std::to_string(timer.elapsed()) + " ms)", slices);
  }

  void Bar() {
    std::mt19937 random(11);
    std::vector<double> times;
    for (int i = 0; i < kRounds; ++i) {
      QElapsedTimer timer;
      timer.start();
      list_->verticalScrollBar()->setValue(static_cast<int>(random() % static_cast<unsigned>(list_->verticalScrollBar()->maximum() + 1)));
      list_->viewport()->repaint();
      times.push_back(Milliseconds(timer));
    }
    Print("scroll bar to a random place", times);
  }

  void PageKeys() {
    std::vector<double> times;
    list_->setFocus();
    for (int i = 0; i < kRounds; ++i) {
      QElapsedTimer timer;
      timer.start();
      desktop::input::Key(*window_, i % 4 == 3 ? Qt::Key_PageUp : Qt::Key_PageDown, Qt::NoModifier);
      Paint();
      times.push_back(Milliseconds(timer));
    }
    Print("page key", times);
  }

  desktop::DesktopFrontEnd& front_;
  QElapsedTimer& opening_;
  desktop::FormWindow* window_ = nullptr;
  desktop::ListView* list_ = nullptr;
};

}  // namespace

int main(int count, char** words) {
  if (count < 2) {
    std::cerr << "bench_desktop DIR [USER]\n";
    return 2;
  }
  try {
    platform::ApplicationParts parts;
    auto made = std::make_unique<desktop::DesktopFrontEnd>(desktop::DesktopOptions{"", "", true, "light"});
    desktop::DesktopFrontEnd& front = *made;
    parts.frontEnd = std::move(made);
    parts.system = suite::MakeNativeSystem(words[1]);
    parts.engine = engine::MakeEngine();
    parts.errorLog = suite::MakeErrorLog("/dev/null");
    parts.accounts = suite::MakeMissingAccountsLookup();
    parts.path = words[1];
    platform::Application app(std::move(parts));
    orcussch::CustSearch session(app);
    session.UserID(count > 2 ? words[2] : "1");
    session.CompanyID(1);
    std::cout << "| job | median ms | 90th percentile | worst |\n| --- | ---: | ---: | ---: |\n";
    QElapsedTimer opening;
    Measurement measurement(front, opening);
    QTimer::singleShot(0, [&] { measurement.Begin(); });
    opening.start();
    session.ShowUser();
  } catch (const std::exception& error) {
    std::cerr << error.what() << "\n";
    return 1;
  }
  return 0;
}
