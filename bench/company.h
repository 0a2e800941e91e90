#pragma once

#include <memory>
#include <string>
#include <vector>

#include "measure.h"
#include "platform/data/data.h"
#include "raw/store.h"

namespace bench {

/// One company's customer file, opened by both sides, and what the jobs ask for.
class Company {
 public:
  /// `folder` as the file maker makes it, with company 1. `smallRows`: threshold of the strategies.
  explicit Company(const std::string& folder);

  platform::DataEngine& Engine() { return *engine_; }
  platform::Database& Data() { return *database_; }
  raw::Store& Raw() { return raw_; }

  /// The list as the main screen opens it.
  static const std::string& ListStatement();
  platform::RecordsetRef OpenList() { return Data().OpenRecordset(ListStatement()); }

  std::int64_t Rows() const { return rows_; }
  /// A fixed random choice of rows that have a name, away from both ends.
  const std::vector<raw::NameKey>& Somewhere() const { return somewhere_; }
  /// Rows in the middle of the largest group of equal names.
  const std::vector<raw::NameKey>& LargestGroup() const { return group_; }
  std::int64_t LargestGroupSize() const { return groupSize_; }
  const std::vector<std::int64_t>& Ordinals() const { return ordinals_; }
  /// Values of Addr1 of rows here and there.
  const std::vector<std::string>& Addresses() const { return addresses_; }

 private:
  void LinkTransactions(const std::string& folder);
  void ChooseRows();
  void FindLargestGroup();

  std::unique_ptr<platform::DataEngine> engine_;
  platform::WorkspaceRef workspace_;
  platform::DatabaseRef database_;
  raw::Store raw_;
  std::int64_t rows_ = 0;
  std::int64_t groupSize_ = 0;
  std::vector<raw::NameKey> somewhere_;
  std::vector<raw::NameKey> group_;
  std::vector<std::int64_t> ordinals_;
  std::vector<std::string> addresses_;
};

/// Checksum of the accounts of some rows, in their order.
std::uint64_t SumOf(const std::vector<platform::ListRow>& rows);
std::uint64_t SumOf(const raw::Rows& rows);
/// The account of the row on which a recordset stands.
std::uint64_t AccountOf(const platform::Recordset& recordset);

/// Every cell of two pages compared; throws std::runtime_error where they differ.
void RequireSameCells(const std::vector<platform::ListRow>& ours, const raw::Rows& bare);

std::vector<Job> ListJobs(Company& company);
std::vector<Job> SearchJobs(Company& company);
std::vector<Job> RecordJobs(Company& company);
/// Those whose names hold `only`, since a query is opened several times before it is measured.
std::vector<Job> QueryJobs(Company& company, const std::string& only);
/// Inside results that stay open: making them is a look at the whole company.
std::vector<Job> ResultJobs(Company& company);

template <class T>
const T& Pick(const std::vector<T>& choices, int call) {
  return choices[static_cast<std::size_t>(call) % choices.size()];
}

}  // namespace bench
