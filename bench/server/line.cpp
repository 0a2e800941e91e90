// Runs a program at a desk whose company lies on a server, over a line that takes its time and counts the round trips.
#include <spawn.h>
#include <sys/wait.h>

#include <algorithm>
#include <chrono>
#include <cstring>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

#include "desk_folder.h"
#include "engine/store/postgres/link/target.h"
#include "main_screen.h"
#include "options.h"
#include "support/counting_proxy.h"

namespace {

constexpr const char* kUsage =
    "bench_line [--delay MS] [--rounds N] postgresql://HOST/DATABASE/orv1/ PROGRAM [WORD...]\n"
    "Runs the program N times (1), each word DESK being the folder of a desk whose line to the server, a socket's folder on this machine, "
    "takes\n"
    "MS milliseconds each way (0); tells how many round trips that took.\n";

int Run(std::vector<std::string> words, const std::string& desk) {
  std::ranges::replace(words, std::string("DESK"), desk);
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  pid_t child = 0;
  if (::posix_spawnp(&child, arguments[0], nullptr, nullptr, arguments.data(), environ) != 0)
    throw std::runtime_error("no program " + words[0]);
  int status = 0;
  ::waitpid(child, &status, 0);
  return status;
}

}  // namespace

int main(int count, char** words) {
  return bench::RunProgram("bench_line", kUsage, [&] {
    int delay = 0, rounds = 1;
    const auto isPlace = [](const char* word) { return std::strncmp(word, "postgresql:", 11) == 0; };
    const int at = static_cast<int>(std::find_if(words + 1, words + count, isPlace) - words);
    const auto others = bench::OptionWords().Number("--delay", delay).Number("--rounds", rounds).Read(at, words);
    if (!others.empty() || at + 1 >= count) throw std::invalid_argument(others.empty() ? "PROGRAM" : others[0]);
    const engine::postgres::Target target = engine::postgres::ParseTarget(std::string(words[at]) + "customer.zdb");
    CountingProxy line(target.hosts);
    line.Delay(std::chrono::milliseconds(delay));
    const bench::DeskFolder desk(line.PathOf(target.database) + "orv1/");
    bench::TemporaryFileIn(desk.Path());
    for (int round = 0; round < rounds; ++round) {
      const auto before = line.Trips();
      if (Run({words + at + 1, words + count}, desk.Path()) != 0) throw std::runtime_error("the program failed");
      // Without any delay the parts of a trip are answered one by one.
      if (delay > 0) std::cout << "round trips, with those of connecting: " << line.Trips() - before << std::endl;
    }
  });
}
