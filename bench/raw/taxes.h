#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "raw/store.h"

namespace bench::raw {

/// The bare program's side of the tax tables, on the connection of a Store.
class Taxes {
 public:
  explicit Taxes(Store& customers);
  ~Taxes();
  Taxes(const Taxes&) = delete;
  Taxes& operator=(const Taxes&) = delete;

  /// Adds invented rows until each table has so many; none was ever deleted.
  void FillUp(int rows);

  /// The lists' statements, each prepared for this one run, and their first rows.
  Rows OpenTypes(int count);
  Rows OpenEntities(int count);
  Rows OpenRates(int count);

  /// One change with its commit, and the row read before it.
  void SaveRate(std::int64_t key, const std::string& comment);
  void SaveType(std::int64_t key, const std::string& name);
  /// The rows behind that one in the order of the numbers.
  Rows RatesBehind(std::int64_t key, int count);
  Rows TypesBehind(std::int64_t key, int count);

 private:
  struct Statements;
  std::unique_ptr<Statements> statements_;
};

}  // namespace bench::raw
