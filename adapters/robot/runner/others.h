#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/data/data.h"
#include "robot/runner/surroundings.h"

namespace robot {

/// The other users of the same files: each statement over a workspace of its own. Raises platform::Error as the engine does,
/// ActionFailed for a part that the surroundings lack.
class OtherUsers {
 public:
  explicit OtherUsers(const Surroundings& surroundings) : surroundings_(surroundings) {}

  /// The company and user whose files are meant; those that the host set last.
  void Company(std::int32_t company) { company_ = company; }
  void User(std::int32_t user) { user_ = user; }

  /// `file` as the program looks it up; "temp" is the user's temporary file.
  std::string PathOf(const std::string& file) const;
  void Run(const std::string& file, const std::string& statement);
  /// The first field of the statement's first row; nothing when it has no row.
  std::optional<platform::Value> ValueOf(const std::string& file, const std::string& statement);
  void Drop(const std::string& file, const std::string& table);

  /// Runs the statement in a transaction that stays open until Release (commits) or Undo (rolls back).
  void Hold(const std::string& file, const std::string& statement);
  bool Holding() const noexcept { return !held_.empty(); }
  void Release();
  void Undo();

 private:
  struct OwnFile {
    std::unique_ptr<platform::DataEngine> engine;
    platform::WorkspaceRef workspace;
    platform::DatabaseRef database;
  };
  OwnFile Open(const std::string& file) const;

  const Surroundings& surroundings_;
  std::optional<std::int32_t> company_;
  std::optional<std::int32_t> user_;
  std::vector<OwnFile> held_;
};

}  // namespace robot
