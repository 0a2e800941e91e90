#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <thread>

#include "engine/data_file.h"
#include "platform/values/error.h"
#include "suite/company_schema.h"
#include "support/temporary_folder.h"
#include "system/child.h"
#include "system/obstacles/obstacle.h"
#include "system/screen_kills/books.h"

/// obstacle_test PROGRAMS SCENARIO OBSTACLE [custsearch options]: runs a scenario in which the customer file can't be written for a
/// while. In the scenario the line "@begin" begins that and "@end" ends it; "@number" stands for the number of the error that a
/// write meets, and "@common end" for what must hold behind a save whose writing failed. Besides what the scenario expects, nothing
/// in the file may have changed between the two, and at the end the files must be sound. Exit status 77: this system doesn't allow
/// the obstacle.
namespace {

using namespace system_test;
using namespace std::chrono_literals;

constexpr int kNotPossible = 77;

/// The scenario waits at a gate by running the program on a pipe, which is read as an empty scenario once it is let through.
class Gate {
 public:
  explicit Gate(const std::string& path) : path_(path) {
    if (::mkfifo(path.c_str(), 0600) != 0) throw std::runtime_error("no pipe");
  }
  /// Waits until the scenario stands at the gate; false when `over` says that it has ended.
  template <class Over>
  bool Wait(Over&& over) {
    for (;;) {
      pipe_ = ::open(path_.c_str(), O_WRONLY | O_NONBLOCK);
      if (pipe_ >= 0) return true;
      if (over()) return false;
      std::this_thread::sleep_for(2ms);
    }
  }
  void Let() { ::close(pipe_); }

 private:
  std::string path_;
  int pipe_ = -1;
};

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
  for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) text.replace(at, from.size(), to);
  return text;
}

std::string ScriptOf(const std::string& file, int number) {
  std::ifstream input(file);
  if (!input) throw std::runtime_error(file + " can't be read");
  std::ostringstream text;
  text << input.rdbuf();
  const auto gate = [](const std::string& name) { return "run custsearch --scenario {DIR}/" + name + " --data {DIR}"; };
  const std::string commonEnd =
      "expect SSIndexTab1.Page 0\nexpect disabled tb_SaveRec\nexpect disabled tb_CancelRec\nexpect enabled tb_AddRec\nexpect ready\n"
      "expect pointer 0\nexpect status \"\"";
  std::string script = Replaced(text.str(), "@begin", gate("begin"));
  script = Replaced(script, "@end", gate("end"));
  script = Replaced(script, "@number", std::to_string(number));
  return Replaced(script, "@common end", commonEnd);
}

class Run {
 public:
  /// `company`: where the company's files will lie.
  Run(std::string programs, const std::string& scenario, const TemporaryFolder& company, Obstacle& obstacle,
      std::vector<std::string> options)
      : programs_(std::move(programs)), company_(company), obstacle_(obstacle), options_(std::move(options)) {
    ::setenv("HOME", outside_.Path().c_str(), 1);
    ::setenv("XDG_RUNTIME_DIR", outside_.Path().c_str(), 1);
    Tool({"create", company_.Path(), "--company", "1", "--year", "2026"});
    Tool({"temp", company_.Path(), "--user", "1"});
    RunStatement(File(), "INSERT INTO Customers (LastName, NonBillable) VALUES ('Ballast', False)");
    script_ = outside_.Write("script.scn", ScriptOf(scenario, obstacle.Number()));
  }

  int Perform() {
    // Two of them: who is let through at one has left it before the scenario comes to the other.
    Gate begin(company_ / "begin");
    Gate end(company_ / "end");
    std::vector<std::string> words{programs_ + "/custsearch", "--scenario", script_, "--data", company_.Path()};
    words.insert(words.end(), options_.begin(), options_.end());
    Child program(words);
    const auto over = [&] { return program.HasEnded(); };
    while (begin.Wait(over)) {
      obstacle_.Begin(File(), program.Number());
      const Books before = ReadBooks(File());
      begin.Let();
      if (!end.Wait(over)) {
        Complain("the scenario ended before the obstacle did");
        break;
      }
      obstacle_.End();
      for (const std::string& sentence : Differences(before, ReadBooks(File()))) Complain(sentence);
      end.Let();
      ++obstacles_;
    }
    for (std::string line; program.ReadLine(line);) std::cout << line << '\n';
    const int status = program.Wait();
    if (status != 0) Complain("the program ended with " + std::to_string(status));
    if (obstacles_ == 0) Complain("nothing was in the way");
    for (const std::string& sentence : engine::CheckDataFile(File(), suite::TablesOf(suite::DataFile::Customer))) Complain(sentence);
    return bad_ ? 1 : 0;
  }

 private:
  std::string File() const { return company_ / "data/orv1/customer.zdb"; }
  void Complain(const std::string& sentence) {
    bad_ = true;
    std::cout << sentence << '\n';
  }
  void Tool(std::vector<std::string> words) {
    words.insert(words.begin(), programs_ + "/suitefiles");
    Child tool(words);
    for (std::string line; tool.ReadLine(line);) {
    }
    if (tool.Wait() != 0) throw std::runtime_error("the company can't be made");
  }

  std::string programs_;
  const TemporaryFolder& company_;
  Obstacle& obstacle_;
  std::vector<std::string> options_;
  TemporaryFolder outside_;
  std::string script_;
  int obstacles_ = 0;
  bool bad_ = false;
};

}  // namespace

int main(int count, char** words) {
  const auto obstacle = count >= 4 ? MakeObstacle(words[3]) : nullptr;
  if (!obstacle) return 2;
  try {
    const TemporaryFolder company;
    if (!obstacle->Prepare(company.Path())) {
      std::cout << "this system doesn't allow it\n";
      return kNotPossible;
    }
    return Run(words[1], words[2], company, *obstacle, {words + 4, words + count}).Perform();
  } catch (const platform::Error& error) {
    std::cout << "error " << error.Number() << ": " << error.Description() << '\n';
  } catch (const std::exception& error) {
    std::cout << error.what() << '\n';
  }
  return 1;
}
