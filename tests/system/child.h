#pragma once

#include <sys/types.h>

#include <cstdint>
#include <string>
#include <vector>

namespace system_test {

/// A program that runs beside the test, whose output the test reads.
class Child {
 public:
  /// words[0] is the program's file.
  explicit Child(const std::vector<std::string>& words);
  /// Kills it when it still runs.
  ~Child();
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;

  /// The next line of its output, waited for; false at its end.
  bool ReadLine(std::string& line);
  pid_t Number() const { return number_; }
  /// Whether it has come to its end; Wait then returns at once.
  bool HasEnded();
  /// SIGKILL.
  void Kill();
  /// Waits for its end: the exit status, or minus the signal's number.
  int Wait();

 private:
  pid_t number_ = -1;
  int output_ = -1;
  std::string read_;
};

}  // namespace system_test
