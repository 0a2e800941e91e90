#pragma once

#include <cstddef>
#include <list>
#include <memory>
#include <string_view>
#include <unordered_map>

namespace engine {

/// The statements that a connection keeps ready, by their texts; those used last are kept. `S`: a Statement that tells its text by
/// Sql().
template <class S>
class KeptStatements {
 public:
  using Recent = std::list<std::shared_ptr<S>>;

  /// A statement with that text that no run is using: the kept one, or else what `make` gives.
  template <class Make>
  std::shared_ptr<S> Take(std::string_view sql, Make make) {
    if (const auto found = bySql_.find(sql); found != bySql_.end() && !(*found->second)->InUse()) {
      recent_.splice(recent_.begin(), recent_, found->second);
      return recent_.front();
    }
    std::shared_ptr<S> statement = make();
    if (bySql_.contains(sql)) return statement;  // the kept one is in use: this one lives for its run alone
    recent_.push_front(statement);
    bySql_.emplace(statement->Sql(), recent_.begin());
    if (recent_.size() > kMost) {
      bySql_.erase(recent_.back()->Sql());
      recent_.pop_back();
    }
    return statement;
  }

  /// All of them, used last first.
  const Recent& All() const noexcept { return recent_; }
  void Clear() noexcept {
    bySql_.clear();
    recent_.clear();
  }

 private:
  static constexpr std::size_t kMost = 256;

  Recent recent_;
  std::unordered_map<std::string_view, typename Recent::iterator> bySql_;
};

}  // namespace engine
