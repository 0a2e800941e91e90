#include "desks/desk.h"

#include <exception>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <thread>

#include "main_screen.h"
#include "platform/controls/form/box.h"
#include "platform/controls/form/form.h"

namespace bench::desks {
namespace {

// Numbers, and what stands in apostrophes, differ from box to box; what is told doesn't. A name may hold an apostrophe itself.
std::string KindOf(const std::string& text) {
  std::string line = text.substr(0, text.find_first_of("\r\n"));
  const std::size_t first = line.find('\'');
  const std::size_t last = line.rfind('\'');
  if (first != last) line.replace(first + 1, last - first - 1, "...");
  std::string kind;
  for (const char c : line) {
    const bool digit = c >= '0' && c <= '9';
    if (digit && kind.ends_with('#')) continue;
    kind += digit ? '#' : c;
  }
  return kind;
}

class ErrorsGoIntoTheBook final : public platform::ErrorLog {
 public:
  explicit ErrorsGoIntoTheBook(DayBook& book) : book_(book) {}
  void Write(const platform::ErrorRecord& record) noexcept override {
    try {
      book_.WasTold("error " + std::to_string(record.number) + " in " + record.module);
    } catch (...) {
      std::terminate();  // no memory for a line
    }
  }

 private:
  DayBook& book_;
};

class Desk final : public platform::NoWindows {
 public:
  Desk(const Place& place, const Habits& habits, DayBook& book) : place_(place), book_(book), clerk_(habits, book) {}

  void RunModal(platform::Form& form, const std::function<bool()>& done) override {
    if (!met_) MeetTheOthers();
    clerk_.At(form);
    if (!done()) form.Host().Unload(form);
  }

  int MessageBox(const std::string& text, int style, const std::string& title) override {
    const bool asks = (style & platform::box::YesNo) != 0;
    if (!asks) book_.WasTold("box " + title + ": " + KindOf(text));
    return asks ? platform::box::Yes : platform::box::Ok;
  }

 private:
  void MeetTheOthers() {
    met_ = true;
    std::ofstream(ReadyMark(place_.meeting, place_.number)).flush();
    while (!std::filesystem::exists(BeginMark(place_.meeting))) std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }

  Place place_;
  DayBook& book_;
  Clerk clerk_;
  bool met_ = false;
};

}  // namespace

std::string BookOf(const std::string& meeting, int desk) { return meeting + "/book." + std::to_string(desk); }
std::string ReadyMark(const std::string& meeting, int desk) { return meeting + "/ready." + std::to_string(desk); }
std::string BeginMark(const std::string& meeting) { return meeting + "/begin"; }

void WorkAtDesk(const Place& place, const Habits& habits) {
  DayBook book;
  Visit visit;
  visit.folder = place.folder;
  visit.user = place.number;
  visit.frontEnd = std::make_unique<Desk>(place, habits, book);
  visit.errorLog = std::make_unique<ErrorsGoIntoTheBook>(book);
  ShowMainScreen(std::move(visit));
  book.Write(BookOf(place.meeting, place.number));
}

}  // namespace bench::desks
