#include <chrono>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <random>
#include <string>
#include <thread>

#include "engine/data_file.h"
#include "suite/company_schema.h"
#include "support/temporary_folder.h"
#include "system/child.h"
#include "system/numbered_writes.h"

/// kill_test WRITER [--kills N] [--seed S]: lets a program write numbered writes into a company's file and kills it at a random
/// moment, again and again, sometimes while a second one writes beside it. After each kill every write that the victim had
/// acknowledged must be in the file whole, and no half one. What was acknowledged stands in a log that the victim never
/// touches.
namespace {

using namespace system_test;
using namespace std::chrono_literals;

struct Options {
  std::string writer;
  int kills = 20;
  unsigned seed = 1;
};

Options Read(int count, char** words) {
  Options options;
  options.writer = words[1];
  for (int i = 2; i + 1 < count; i += 2) {
    if (std::string(words[i]) == "--kills") options.kills = std::stoi(words[i + 1]);
    if (std::string(words[i]) == "--seed") options.seed = static_cast<unsigned>(std::stoul(words[i + 1]));
  }
  return options;
}

/// The acknowledged writes, in a file of the test's own.
class Log {
 public:
  explicit Log(const std::string& path) : path_(path) {}
  void Add(const std::string& number) { std::ofstream(path_, std::ios::app) << number << '\n'; }
  std::set<std::int64_t> Numbers() const {
    std::ifstream file(path_);
    std::set<std::int64_t> numbers;
    for (std::int64_t number = 0; file >> number;) numbers.insert(number);
    return numbers;
  }

 private:
  std::string path_;
};

class KillTest {
 public:
  explicit KillTest(Options options) : options_(std::move(options)), chance_(options_.seed), log_(outside_ / "acknowledged.log") {
    MakeCompany(company_.Path());
  }

  int Run() {
    for (int round = 1; round <= options_.kills && failures_ == 0; ++round) {
      Round(round);
      Verify(round);
    }
    std::cout << options_.kills << " kills, " << log_.Numbers().size() << " acknowledged writes, " << uncertain_.size() << " cut off, seed "
              << options_.seed << ": " << (failures_ == 0 ? "all held" : "FAILED") << '\n';
    return failures_ == 0 ? 0 : 1;
  }

 private:
  std::string File() const { return CustomerFile(company_.Path()); }

  void Round(int round) {
    constexpr int kBystanderWrites = 20;
    std::unique_ptr<Child> bystander;
    if (round % 2 == 0) {
      const std::int64_t first = kNumbersOfAWriter + round * kBystanderWrites;
      bystander = std::make_unique<Child>(
          std::vector<std::string>{options_.writer, File(), std::to_string(first), std::to_string(kBystanderWrites)});
    }
    KillOne(round);
    if (!bystander) return;
    // Who writes beside a victim loses nothing by its end.
    std::string line;
    int acknowledged = 0;
    for (; bystander->ReadLine(line); ++acknowledged) log_.Add(line);
    const int status = bystander->Wait();
    if (status != 0 || acknowledged != kBystanderWrites)
      Fail(round,
           "the writer beside the victim ended with " + std::to_string(status) + " after " + std::to_string(acknowledged) + " writes");
  }

  void KillOne(int round) {
    Child victim({options_.writer, File(), std::to_string(next_), "0"});
    // Every fifth is killed while it opens the file, the others at a random moment of their writing.
    std::string line;
    std::int64_t last = next_ - 1;
    const auto moment = std::chrono::microseconds(std::uniform_int_distribution<int>(0, 150'000)(chance_));
    if (round % 5 != 0 && victim.ReadLine(line)) {
      log_.Add(line);
      last = std::stoll(line);
    }
    std::this_thread::sleep_for(moment);
    victim.Kill();
    const int status = victim.Wait();
    if (status != -9) Fail(round, "the victim ended by itself with " + std::to_string(status));
    while (victim.ReadLine(line)) {
      log_.Add(line);
      last = std::stoll(line);
    }
    uncertain_.insert(last + 1);
    next_ = last + 2;
  }

  void Verify(int round) {
    for (const std::string& sentence : Compare(File(), {log_.Numbers(), uncertain_})) Fail(round, sentence);
    for (const std::string& sentence : engine::CheckDataFile(File(), suite::TablesOf(suite::DataFile::Customer))) Fail(round, sentence);
  }

  void Fail(int round, const std::string& sentence) {
    ++failures_;
    std::cout << "kill " << round << ": " << sentence << '\n';
  }

  Options options_;
  std::mt19937 chance_;
  TemporaryFolder company_;
  TemporaryFolder outside_;
  Log log_;
  std::set<std::int64_t> uncertain_;
  std::int64_t next_ = 1;
  int failures_ = 0;
};

}  // namespace

int main(int count, char** words) {
  if (count < 2) return 2;
  return KillTest(Read(count, words)).Run();
}
