#include "covering.h"

#include <algorithm>
#include <cstddef>
#include <random>

namespace {

constexpr int kCandidates = 12;

class Pairs {
 public:
  explicit Pairs(const std::vector<int>& levels) : first_(levels.size()) {
    int all = 0;
    for (std::size_t factor = 0; factor < levels.size(); ++factor) {
      first_[factor] = all;
      all += levels[factor];
    }
    size_ = static_cast<std::size_t>(all);
    open_.assign(size_ * size_, false);
    for (std::size_t a = 0; a < levels.size(); ++a)
      for (std::size_t b = a + 1; b < levels.size(); ++b)
        for (int i = 0; i < levels[a]; ++i)
          for (int j = 0; j < levels[b]; ++j) Put(a, i, b, j, true);
  }
  bool Open(std::size_t a, int i, std::size_t b, int j) const { return open_[Place(a, i) * size_ + Place(b, j)]; }
  void Close(std::size_t a, int i, std::size_t b, int j) { Put(a, i, b, j, false); }
  int Left() const { return left_; }
  int NewIn(const std::vector<int>& row) const {
    int found = 0;
    for (std::size_t a = 0; a < row.size(); ++a)
      for (std::size_t b = a + 1; b < row.size(); ++b) found += Open(a, row[a], b, row[b]) ? 1 : 0;
    return found;
  }

 private:
  std::size_t Place(std::size_t factor, int level) const { return static_cast<std::size_t>(first_[factor] + level); }
  void Put(std::size_t a, int i, std::size_t b, int j, bool open) {
    if (Open(a, i, b, j) == open) return;
    open_[Place(a, i) * size_ + Place(b, j)] = open;
    open_[Place(b, j) * size_ + Place(a, i)] = open;
    left_ += open ? 1 : -1;
  }

  std::vector<int> first_;
  std::size_t size_ = 0;
  std::vector<bool> open_;
  int left_ = 0;
};

/// A row grown factor by factor, each with the level that closes most pairs with those chosen before.
std::vector<int> Candidate(const std::vector<int>& levels, const Pairs& pairs, std::mt19937& random) {
  std::vector<std::size_t> order(levels.size());
  for (std::size_t i = 0; i < order.size(); ++i) order[i] = i;
  for (std::size_t i = order.size(); i > 1; --i) std::swap(order[i - 1], order[random() % i]);
  std::vector<int> row(levels.size(), -1);
  for (std::size_t at = 0; at < order.size(); ++at) {
    const std::size_t factor = order[at];
    int best = -1;
    int most = -1;
    const int start = static_cast<int>(random() % static_cast<unsigned>(levels[factor]));
    for (int step = 0; step < levels[factor]; ++step) {
      const int level = (start + step) % levels[factor];
      int closes = 0;
      for (std::size_t before = 0; before < at; ++before) closes += pairs.Open(factor, level, order[before], row[order[before]]) ? 1 : 0;
      if (closes > most) {
        most = closes;
        best = level;
      }
    }
    row[factor] = best;
  }
  return row;
}

}  // namespace

std::vector<std::vector<int>> CoverPairs(const std::vector<int>& levelsOfFactor) {
  Pairs pairs(levelsOfFactor);
  std::mt19937 random(20261122);
  std::vector<std::vector<int>> rows;
  while (pairs.Left() > 0) {
    std::vector<int> best;
    int most = 0;
    for (int i = 0; i < kCandidates; ++i) {
      std::vector<int> row = Candidate(levelsOfFactor, pairs, random);
      const int closes = pairs.NewIn(row);
      if (closes > most) {
        most = closes;
        best = std::move(row);
      }
    }
    if (best.empty()) continue;
    for (std::size_t a = 0; a < best.size(); ++a)
      for (std::size_t b = a + 1; b < best.size(); ++b) pairs.Close(a, best[a], b, best[b]);
    rows.push_back(std::move(best));
  }
  return rows;
}
