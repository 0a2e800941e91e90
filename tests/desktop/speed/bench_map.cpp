#include <ctime>

#include <QApplication>
#include <QElapsedTimer>
#include <algorithm>
#include <functional>
#include <iostream>
#include <random>
#include <string>
#include <vector>

#include "desktop/map/map_window.h"
#include "streets/entry/street_map.h"

// The map's frames over a made-up state: bench_map [STREETS [PINS]]. 708 streets each way are 1,001,112 edges.
// From the key to the painted map of one customer, with files: bench_map --files MAP STREETS ADDRESS.
namespace {

/// By the clock and by the processor time of the process; milliseconds.
struct Frame {
  double wall = 0, cpu = 0;
};

double Cpu() {
  timespec time{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

Frame Timed(const std::function<void()>& body) {
  QElapsedTimer timer;
  timer.start();
  const double before = Cpu();
  body();
  return {static_cast<double>(timer.nsecsElapsed()) / 1e6, Cpu() - before};
}

void Print(const std::string& job, std::vector<Frame> frames) {
  const auto of = [&](double Frame::*part, double share) {
    std::sort(frames.begin(), frames.end(), [part](const Frame& one, const Frame& other) { return one.*part < other.*part; });
    return frames[static_cast<std::size_t>(static_cast<double>(frames.size() - 1) * share)].*part;
  };
  std::cout << "| " << job << " | " << of(&Frame::wall, 0.5) << " | " << of(&Frame::wall, 0.9) << " | " << of(&Frame::wall, 1) << " | "
            << of(&Frame::cpu, 0.5) << " | " << of(&Frame::cpu, 1) << " |\n"
            << std::flush;
}

class Bench : public desktop_test::MapWindow {
 public:
  Bench(int streets, int pins) : MapWindow(streets), streets_(streets), pins_(pins) {}
  void TestBody() override {
    std::cout << map->ground.Edges() << " edges, " << pins_ << " pins, window " << kWidth << "x" << kHeight
              << "\n\n| job | median ms | 90 % | worst | median cpu ms | worst cpu |\n| --- | --- | --- | --- | --- | --- |\n";
    FirstPicture();
    Pins();
    for (const int width : {8000, 26400, 160000}) {
      Draw(width, streets_ / 2, streets_ / 2);
      Finish();
      Pan("pan, " + std::to_string(width) + " feet wide");
    }
    Zoom();
    Yields();
    std::cout << "\ntiles kept: " << view->Ground().Tiles().Count() << ", " << (view->Ground().Tiles().Bytes() >> 20) << " MiB\n";
  }

 private:
  static constexpr int kWidth = 1280, kHeight = 900, kFrames = 121;

  /// One customer, from the call that shows the window to the picture with all names.
  void FirstPicture() {
    std::vector<Frame> pictures, ground;
    for (int i = 0; i < 15; ++i) {
      map->RemovePins();
      AddPin("1", "Reed, Bob", map->ground.Crossing(100 + 30 * i, 200));
      Draw(26400, 100 + 30 * i, 200);
      const Frame painted = Timed([this] {
        window->resize(kWidth, kHeight);
        front->Shown(*screen);
        while (!view->Drawn()) QApplication::processEvents();
        view->repaint();
      });
      pictures.push_back(painted);
      front->Hidden(*screen);
    }
    Print("one customer, window shown to whole picture, first", {pictures.front()});
    Print("one customer, window shown to whole picture", {pictures.begin() + 1, pictures.end()});
    front->Shown(*screen);
  }

  void Pins() {
    std::mt19937 random(7);
    const auto any = [&] { return static_cast<int>(random() % static_cast<unsigned>(streets_)); };
    for (int i = 0; i < pins_; ++i) AddPin(std::to_string(i), "Customer " + std::to_string(i), map->ground.Crossing(any(), any()));
    Draw(26400, streets_ / 2, streets_ / 2);
    QApplication::processEvents();
    map->AddPin({"last", 0, 0, "last", 0, ""});
    Print("all pins taken over, with the frame", {Timed([this] { view->repaint(); })});
  }

  /// A frame for each push, with what idle time brings between them.
  void Pan(const std::string& job) {
    std::vector<Frame> frames, between;
    for (int i = 0; i < kFrames; ++i) {
      // Around, so that it stays in the town.
      constexpr Qt::Key kAround[] = {Qt::Key_Right, Qt::Key_Down, Qt::Key_Left, Qt::Key_Up};
      const Qt::Key key = kAround[i / 4 % 4];
      frames.push_back(Timed([&] {
        desktop::input::Key(*window, key, Qt::NoModifier);
        view->repaint();
      }));
      between.push_back(Timed([] { QApplication::processEvents(); }));
    }
    Print(job, frames);
    Print(job + ": idle time between two frames", between);
  }

  void Zoom() {
    Draw(26400, streets_ / 2, streets_ / 2);
    Finish();
    std::vector<Frame> frames, between;
    for (int i = 0; i < kFrames; ++i) {
      const int steps = i / 12 % 2 == 0 ? 2 : -2;
      frames.push_back(Timed([&] {
        view->ZoomBy(steps, QPointF(view->width() * 0.4, view->height() * 0.6));
        view->repaint();
      }));
      between.push_back(Timed([] { QApplication::processEvents(); }));
    }
    Print("zoom by a wheel notch", frames);
    Print("zoom by a wheel notch: idle time between two frames", between);
  }

  /// What a run over many rows pays for keeping the screen alive.
  void Yields() {
    constexpr int kYields = 10'000;
    Finish();
    const Frame all = Timed([this] {
      for (int i = 0; i < kYields; ++i) app->DoEvents();
    });
    Print("a yield, in thousandths", {{all.wall * 1000 / kYields, all.cpu * 1000 / kYields}});
  }

  int streets_;
  int pins_;
};

/// One customer on a map of files: what the screen does when it loads, and then the window until all is painted.
class OneCustomer : public desktop_test::MapWindow {
 public:
  OneCustomer(const std::string& baseMap, const std::string& streets)
      : MapWindow(streets::MakeStreetMap([=] { return std::vector<std::string>{baseMap, streets}; })) {}
  void TestBody() override {}

  Frame Open(const std::string& address) {
    front->Hidden(*screen);
    platform::MapControl& control = screen->Pwstreet1;
    return Timed([&] {
      control.Action(platform::MapControl::Prepare);
      screen->lstMap.Clear();
      control.ListHandle = &screen->lstMap;
      control.Address = address;
      control.Action(platform::MapControl::Geocode);
      control.PinKey = "1";
      control.Text = "Reed, Bob";
      control.Action(platform::MapControl::AddPin);
      control.MapWidth = 26400;
      control.Action(platform::MapControl::Draw);
      window->resize(1280, 900);
      front->Shown(*screen);
      while (!view->Drawn()) QApplication::processEvents();
      view->repaint();
    });
  }
};

void OpenForOneCustomer(const std::string& baseMap, const std::string& streets, const std::string& address) {
  constexpr int kRounds = 15;
  std::vector<Frame> first, again;
  for (int i = 0; i < kRounds; ++i) {
    OneCustomer window(baseMap, streets);
    first.push_back(window.Open(address));
    again.push_back(window.Open(address));
  }
  std::cout << "| job | median ms | 90 % | worst | median cpu ms | worst cpu |\n| --- | --- | --- | --- | --- | --- |\n";
  Print("one customer, key to whole picture, files not open yet", first);
  Print("one customer, key to whole picture, again", again);
}

}  // namespace

int main(int count, char** words) {
  qputenv("QT_QPA_PLATFORM", qEnvironmentVariableIsSet("QT_QPA_PLATFORM") ? qgetenv("QT_QPA_PLATFORM") : "offscreen");
  QApplication application(count, words);
  QApplication::setQuitOnLastWindowClosed(false);
  if (count == 5 && std::string(words[1]) == "--files") {
    OpenForOneCustomer(words[2], words[3], words[4]);
    return testing::Test::HasFailure() ? 1 : 0;
  }
  const auto number = [&](int place, int otherwise) { return count > place ? std::stoi(words[place]) : otherwise; };
  Bench bench(number(1, 708), number(2, 100'000));
  bench.TestBody();
  return testing::Test::HasFailure() ? 1 : 0;
}
