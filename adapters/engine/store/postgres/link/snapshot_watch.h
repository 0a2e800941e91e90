#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace engine::postgres {

/// Tells from the server's snapshots ("xmin:xmax:running,running...") whether a writing transaction of somebody else has ended.
class SnapshotWatch {
 public:
  /// A transaction of this connection's own, by its number.
  void Own(std::string_view number);
  /// A transaction of which somebody has told that it wrote and has ended; whether that is news. It isn't told again by Others.
  bool Told(std::string_view number);
  /// The state of the server now: whether others have ended writes since the one before. The first one says yes.
  bool Others(std::string_view snapshot);
  /// Everything may have happened: the next one says yes.
  void Forget() { known_ = false; }

 private:
  struct Snapshot {
    std::uint64_t behind = 0;             ///< all transactions from here on are still to come
    std::vector<std::uint64_t> running;  ///< in order
  };
  static Snapshot Parse(std::string_view text);

  bool known_ = false;
  std::string text_;
  Snapshot last_;
  std::set<std::uint64_t> own_;  ///< and those that were told: they are no news
};

}  // namespace engine::postgres
