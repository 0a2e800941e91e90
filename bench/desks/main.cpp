// An office at work on one company: so many desks, each a process with the real engine and the main screen's models.
#include <cstdlib>
#include <exception>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "desks/desk.h"
#include "desks/office.h"

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

Options Read(const std::vector<std::string>& words) {
  Options options;
  options.place.number = 0;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const auto value = [&] { return i + 1 < words.size() ? words[++i] : throw std::invalid_argument(words[i]); };
    if (words[i] == "--desks")
      options.offices = NumbersIn(value());
    else if (words[i] == "--seconds")
      options.habits.time = std::chrono::seconds(std::stoi(value()));
    else if (words[i] == "--think")
      options.habits.think = std::chrono::milliseconds(std::stoi(value()));
    else if (words[i] == "--seed")
      options.habits.seed = static_cast<std::uint32_t>(std::stoul(value()));
    else if (words[i] == "--server")
      options.server = std::stoi(value());
    else if (words[i] == "--desk")
      options.place.number = std::stoi(value());
    else if (words[i] == "--meeting")
      options.place.meeting = value();
    else if (words[i] == "--help")
      options.help = true;
    else if (words[i].starts_with('-'))
      throw std::invalid_argument(words[i]);
    else
      options.place.folder = words[i];
  }
  return options;
}

}  // namespace

int main(int count, char** words) {
  try {
    const Options options = Read({words + 1, words + count});
    if (options.help || options.place.folder.empty()) {
      (options.help ? std::cout : std::cerr) << usage;
      return options.help ? EXIT_SUCCESS : 2;
    }
    if (options.place.number != 0) {
      bench::desks::WorkAtDesk(options.place, options.habits);
      return EXIT_SUCCESS;
    }
    for (const int desks : options.offices)
      std::cout << bench::desks::TellOf(bench::desks::RunOffice("/proc/self/exe", options.place.folder, desks, options.habits, options.server))
                << std::flush;
    return EXIT_SUCCESS;
  } catch (const std::invalid_argument& word) {
    std::cerr << "bench_desks: what is meant by " << word.what() << "?\n" << usage;
    return 2;
  } catch (const std::exception& error) {
    std::cerr << "bench_desks: " << error.what() << "\n";
    return EXIT_FAILURE;
  }
}
