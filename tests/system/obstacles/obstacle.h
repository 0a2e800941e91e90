#pragma once

#include <sys/types.h>

#include <memory>
#include <string>

/// What keeps a program from writing the customer file for a while.
namespace system_test {

class Obstacle {
 public:
  virtual ~Obstacle() = default;
  /// The error's number that a write meets.
  virtual int Number() const = 0;
  /// Makes the place for a company's files; false when this system doesn't allow it.
  virtual bool Prepare(const std::string& company) = 0;
  virtual void Begin(const std::string& file, pid_t program) = 0;
  virtual void End() = 0;
};

/// "locked": another program holds the file's lock. "limit": no file of the program may grow beyond the size that the customer
/// file's log has now. "disk": the company's disk is full, a small one of its own; needs the right to mount one. Null for another
/// name.
std::unique_ptr<Obstacle> MakeObstacle(const std::string& name);

}  // namespace system_test
