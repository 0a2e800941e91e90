#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "suitefiles/demo/world.h"

namespace suitefiles::demo {

/// Fills the empty customer tables of a company. `progress` gets (what, rows of customers done, all).
class Filler {
 public:
  using ProgressCall = std::function<void(const std::string&, std::int64_t, std::int64_t)>;

  Filler(const World& world, std::int32_t customers, std::string customerFile, std::string transactionFile, ProgressCall progress)
      : world_(world),
        customers_(customers),
        customerFile_(std::move(customerFile)),
        transactionFile_(std::move(transactionFile)),
        progress_(std::move(progress)) {}

  void Fill();

 private:
  void FillCustomers();
  void FillPhones();
  void FillAddresses();
  void FillCards();
  void FillLaborRates();
  void FillTypes();
  void FillKeyWords();
  void FillParents();
  void FillTransactions();
  /// Calls `each` with every account number.
  void ForEach(const std::string& what, const std::function<void(std::int32_t)>& each);

  const World& world_;
  std::int32_t customers_;
  std::string customerFile_;
  std::string transactionFile_;
  ProgressCall progress_;
  std::int64_t done_ = 0;
};

}  // namespace suitefiles::demo
