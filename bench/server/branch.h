#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "engine/catalogue/store_choice.h"
#include "engine/engine.h"
#include "measure.h"
#include "platform/data/data.h"
#include "server/bare_server.h"

namespace engine::postgres {
class PostgresStore;
}

namespace bench::branch {

/// An engine whose round trips to the server can be counted.
struct CountedEngine {
  std::unique_ptr<platform::DataEngine> engine;
  /// Trips of all its connections so far.
  std::function<std::uint64_t()> trips;
};
CountedEngine MakeCountedEngine();

/// A company on a server, opened by both sides, and what the jobs ask for.
class Company {
 public:
  /// `place`: "postgresql://HOST/DATABASE/orv1/", where nobody else works.
  explicit Company(std::string place);

  platform::Database& Data() { return *database_; }
  bare::Server& Bare() { return bare_; }
  const std::string& Place() const { return place_; }
  std::uint64_t Trips() const { return engine_.trips(); }
  std::int64_t Rows() const { return rows_; }
  platform::RecordsetRef OpenList() { return data_("SELECT * FROM Customers ORDER BY LastName"); }
  platform::RecordsetRef Open(const std::string& statement) { return data_(statement); }

  /// A fixed random choice of rows that have a name, away from both ends.
  const std::vector<bare::Place>& Somewhere() const { return somewhere_; }
  const std::vector<std::int64_t>& Ordinals() const { return ordinals_; }
  /// Values of Addr1 of rows here and there, without apostrophes.
  const std::vector<std::string>& Addresses() const { return addresses_; }
  /// The process that serves a connection of this program other than the bare one.
  int BackendOf() const { return backend_; }
  /// The youngest process that serves a desk.
  int YoungestBackend();
  /// What is common to all jobs: who works for which side.
  Job Begin(const std::string& name, double mostRatio);

 private:
  void ChooseRows();
  std::string place_;
  CountedEngine engine_;
  platform::WorkspaceRef workspace_;
  platform::DatabaseRef database_;
  std::function<platform::RecordsetRef(const std::string&)> data_;
  bare::Server bare_;
  int backend_ = 0;
  std::int64_t rows_ = 0;
  std::vector<bare::Place> somewhere_;
  std::vector<std::int64_t> ordinals_;
  std::vector<std::string> addresses_;
};

std::uint64_t SumOf(const std::vector<platform::ListRow>& rows);
std::uint64_t AccountOf(const platform::Recordset& recordset);

std::vector<Job> ListJobs(Company& company);
std::vector<Job> SearchJobs(Company& company);
/// Those whose names hold `only`, since the best bare plan of each is found first.
std::vector<Job> QueryJobs(Company& company, const std::string& only);
/// How many types, and as many key words, a company has while its tabs are measured.
struct Entries {
  int few = 1000;
  int many = 10'000;
};
/// Saves and the tabs of types and key words, which change the company: each job is measured while what it works on is there.
void WithRecordJobs(Company& company, const Entries& entries, const std::function<void(const Job&)>& measure);

template <class T>
const T& Pick(const std::vector<T>& choices, int call) {
  return choices[static_cast<std::size_t>(call) % choices.size()];
}

}  // namespace bench::branch
