#pragma once

#include <map>
#include <string>
#include <vector>

namespace bench::desks {

/// What a desk did: how long each act took, and what the program had to say.
class DayBook {
 public:
  /// Milliseconds by the clock.
  void Did(const std::string& act, double milliseconds) { acts_[act].push_back(milliseconds); }
  void WasTold(const std::string& what) { ++told_[what]; }
  void Memory(double own) { memory_.push_back(own); }
  void SharedMemory(double fairShare) { fairShares_.push_back(fairShare); }

  const std::map<std::string, std::vector<double>>& Acts() const { return acts_; }
  const std::map<std::string, int>& Told() const { return told_; }
  /// MiB that belong to the desk's process alone, of each desk.
  const std::vector<double>& MemoryOfEach() const { return memory_; }
  /// The same with the desk's part of what several processes share.
  const std::vector<double>& FairShareOfEach() const { return fairShares_; }

  /// A file with a line for each entry, and back; several files add up.
  void Write(const std::string& path) const;
  void Add(const std::string& path);

 private:
  std::map<std::string, std::vector<double>> acts_;
  std::map<std::string, int> told_;
  std::vector<double> memory_, fairShares_;
};

/// MiB that belong to this process alone, and with its part of what several share.
double OwnMemory();
double FairShareOfMemory();

}  // namespace bench::desks
