#include "desks/office.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <sstream>
#include <stdexcept>
#include <thread>

#include "desks/desk.h"

namespace bench::desks {
namespace {

namespace fs = std::filesystem;

/// A folder of its own, gone at the end.
class Meeting {
 public:
  Meeting() : path_((fs::temp_directory_path() / "desks-XXXXXX").string()) {
    if (::mkdtemp(path_.data()) == nullptr) throw std::runtime_error("no temporary folder");
  }
  ~Meeting() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
  }
  Meeting(const Meeting&) = delete;
  Meeting& operator=(const Meeting&) = delete;
  const std::string& Path() const { return path_; }

 private:
  std::string path_;
};

pid_t Start(const std::vector<std::string>& words) {
  std::vector<char*> arguments;
  for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  const pid_t child = ::fork();
  if (child < 0) throw std::runtime_error("no process for a desk");
  if (child == 0) {
    ::execv(arguments[0], arguments.data());
    ::_exit(127);
  }
  return child;
}

// Ticks in which the processors worked, and all ticks.
struct Ticks {
  double busy = 0, all = 0;
};
Ticks MachineTicks() {
  std::ifstream stat("/proc/stat");
  std::string name;
  stat >> name;
  constexpr std::size_t idle = 3, waiting = 4, last = 8;  // guests' time is in the user's already
  Ticks ticks;
  double value = 0;
  for (std::size_t i = 0; i < last && stat >> value; ++i) {
    ticks.all += value;
    if (i != idle && i != waiting) ticks.busy += value;
  }
  return ticks;
}

double ProcessorOfDesks() {
  rusage used{};
  ::getrusage(RUSAGE_CHILDREN, &used);
  const auto seconds = [](const timeval& time) { return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6; };
  return seconds(used.ru_utime) + seconds(used.ru_stime);
}

// Seconds of a process and of those of its children that have ended: a server's process for a desk ends with the desk.
double ProcessorOfServer(int process) {
  std::ifstream stat("/proc/" + std::to_string(process) + "/stat");
  std::string text;
  std::getline(stat, text);
  std::istringstream rest(text.substr(std::min(text.rfind(')') + 1, text.size())));
  constexpr int kFirst = 12, kLast = 15;  // of the words behind the name: own time, and the children's
  double ticks = 0;
  std::string word;
  for (int i = 1; i <= kLast && rest >> word; ++i)
    if (i >= kFirst) ticks += std::atof(word.c_str());
  return ticks / static_cast<double>(::sysconf(_SC_CLK_TCK));
}

void WaitUntilReady(const std::string& meeting, const std::vector<pid_t>& desks) {
  for (std::size_t i = 0; i < desks.size(); ++i)
    while (!fs::exists(ReadyMark(meeting, static_cast<int>(i) + 1))) {
      if (::waitpid(desks[i], nullptr, WNOHANG) != 0) throw std::runtime_error("desk " + std::to_string(i + 1) + " did not open");
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
}

double At(const std::vector<double>& sorted, double share) {
  return sorted.empty() ? 0 : sorted[static_cast<std::size_t>(share * static_cast<double>(sorted.size() - 1))];
}

}  // namespace

Day RunOffice(const std::string& program, const std::string& folder, int desks, const Habits& habits, int server) {
  const Meeting meeting;
  std::vector<pid_t> children;
  for (int i = 1; i <= desks; ++i)
    children.push_back(Start({program, "--desk", std::to_string(i), "--meeting", meeting.Path(), "--seed",
                              std::to_string(habits.seed + static_cast<std::uint32_t>(i)), "--seconds", std::to_string(habits.time.count()),
                              "--think", std::to_string(habits.think.count()), folder}));
  WaitUntilReady(meeting.Path(), children);

  const auto begun = std::chrono::steady_clock::now();
  const Ticks before = MachineTicks();
  const double usedBefore = ProcessorOfDesks();
  const double servedBefore = server == 0 ? 0 : ProcessorOfServer(server);
  std::ofstream(BeginMark(meeting.Path())).flush();
  bool failed = false;
  for (const pid_t child : children) {
    int status = 0;
    ::waitpid(child, &status, 0);
    failed = failed || status != 0;
  }
  if (failed) throw std::runtime_error("a desk failed");

  Day day;
  day.desks = desks;
  day.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - begun).count();
  const Ticks after = MachineTicks();
  day.machine = (after.busy - before.busy) / std::max(1.0, after.all - before.all);
  // With what they took to open: children are told of when they end.
  day.processor = (ProcessorOfDesks() - usedBefore) / (day.seconds * std::thread::hardware_concurrency());
  // Its process for the last desk may still be on its way out.
  std::this_thread::sleep_for(std::chrono::milliseconds(300));
  if (server != 0) day.server = (ProcessorOfServer(server) - servedBefore) / (day.seconds * std::thread::hardware_concurrency());
  for (int i = 1; i <= desks; ++i) day.book.Add(BookOf(meeting.Path(), i));
  return day;
}

std::string TellOf(const Day& day) {
  std::ostringstream text;
  std::size_t all = 0;
  for (const auto& [act, times] : day.book.Acts()) all += times.size();
  text << std::fixed << std::setprecision(1) << "\n## " << day.desks << " desks, " << day.seconds
       << " s: " << static_cast<double>(all) / day.seconds << " acts a second; processor: desks (with their opening) "
       << 100 * day.processor << " %, the server for them " << 100 * day.server << " %, whole machine " << 100 * day.machine << " %\n\n"
       << "| act | times | median, ms | 99 of 100 below | longest |\n| --- | ---: | ---: | ---: | ---: |\n";
  for (const auto& [act, times] : day.book.Acts()) {
    std::vector<double> sorted = times;
    std::ranges::sort(sorted);
    text << "| " << act << " | " << sorted.size() << " | " << At(sorted, 0.5) << " | " << At(sorted, 0.99) << " | " << sorted.back()
         << " |\n";
  }
  std::vector<double> memory = day.book.MemoryOfEach();
  std::ranges::sort(memory);
  std::vector<double> shares = day.book.FairShareOfEach();
  std::ranges::sort(shares);
  text << "\nMemory of a desk's own: median " << At(memory, 0.5) << " MiB, most " << At(memory, 1) << " MiB; with its part of what they share: median "
       << At(shares, 0.5) << " MiB.\n";
  for (const auto& [what, count] : day.book.Told()) text << "- " << count << " x " << what << "\n";
  return text.str();
}

}  // namespace bench::desks
