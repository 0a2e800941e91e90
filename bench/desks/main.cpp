// An office at work on one company: so many desks, each a process with the real engine and the main screen's models.
#include <algorithm>
#include <chrono>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "desks/desk.h"
#include "desks/office.h"
#include "options.h"

namespace {

constexpr const char* usage =
    "bench_desks [--desks N,N...] [--seconds S] [--think MS] [--seed N] [--server PID] DIR\n"
    "Company 1 of the folder is worked on by N people at once (1,8,32) for S seconds (60), who think MS milliseconds (300) on average\n"
    "between two acts. The company is changed: give it a copy. A folder whose orv1.ini leads to a server has its company there; PID is\n"
    "that server's first process, if its work is to be counted.\n";

struct Options {
  std::vector<int> offices{1, 8, 32};
  bench::desks::Habits habits;
  int server = 0;
  bool help = false;
  bench::desks::Place place;  ///< of one desk, when this is its process
};

std::vector<int> NumbersIn(const std::string& text) {
  std::vector<int> numbers;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find(',', at), text.size());
    numbers.push_back(std::stoi(text.substr(at, end - at)));
    at = end + 1;
  }
  return numbers;
}

Options Read(int count, const char* const* words) {
  Options options;
  options.place.number = 0;
  int seconds = static_cast<int>(options.habits.time.count()), think = static_cast<int>(options.habits.think.count());
  const auto folders = bench::OptionWords()
                           .Value("--desks", [&options](const std::string& text) { options.offices = NumbersIn(text); })
                           .Number("--seconds", seconds)
                           .Number("--think", think)
                           .Number("--seed", options.habits.seed)
                           .Number("--server", options.server)
                           .Number("--desk", options.place.number)
                           .Text("--meeting", options.place.meeting)
                           .Flag("--help", options.help)
                           .Read(count, words);
  options.habits.time = std::chrono::seconds(seconds);
  options.habits.think = std::chrono::milliseconds(think);
  if (folders.size() != 1 && !options.help) throw std::invalid_argument("DIR");
  if (!folders.empty()) options.place.folder = folders[0];
  return options;
}

}  // namespace

int main(int count, char** words) {
  return bench::RunProgram("bench_desks", usage, [&] {
    const Options options = Read(count, words);
    if (options.help) {
      std::cout << usage;
      return;
    }
    if (options.place.number != 0) return bench::desks::WorkAtDesk(options.place, options.habits);
    for (const int desks : options.offices)
      std::cout << bench::desks::TellOf(bench::desks::RunOffice("/proc/self/exe", options.place.folder, desks, options.habits, options.server))
                << std::flush;
  });
}
