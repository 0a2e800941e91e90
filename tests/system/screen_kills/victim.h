#pragma once

#include <memory>
#include <string>
#include <vector>

#include "system/child.h"
#include "system/screen_kills/clerk.h"

namespace system_test {

/// The real program that does planned acts by its main screen, and says on its output when each begins to write and when it is
/// done.
class Victim {
 public:
  struct Place {
    std::string programs;  ///< the folder of custsearch
    std::string company;   ///< the folder of dat.zdb
    std::string script;    ///< a file that may be written
  };
  /// `options`: further options of custsearch.
  Victim(const Place& place, const std::vector<Operation>& acts, const std::vector<std::string>& options = {});

  /// Waits until an act (from 0) begins to write; false when the program has ended before.
  bool WaitFor(std::size_t act);
  /// Ends it at once and takes in what it had still said. How many acts it had acknowledged.
  std::size_t Kill();
  /// Lets it come to its end: its exit status. What it said besides goes into Complaints.
  int Wait();

  std::size_t Begun() const { return begun_; }
  std::size_t Done() const { return done_; }
  const std::string& Complaints() const { return complaints_; }

 private:
  bool Hear();

  std::unique_ptr<Child> program_;
  std::size_t begun_ = 0;
  std::size_t done_ = 0;
  std::string complaints_;
};

}  // namespace system_test
