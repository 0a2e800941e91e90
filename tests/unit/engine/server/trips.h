#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "engine/catalogue/stores.h"
#include "engine/objects/engine.h"
#include "support/counting_proxy.h"
#include "unit/engine/server/server_test.h"

inline constexpr const char* kList = "SELECT * FROM Customers ORDER BY LastName";
/// Rows that were read count as just read through all of a test.
inline constexpr engine::postgres::Patience kAllOneMoment{.moment = 600'000};

inline std::vector<platform::TableDefinition> CustomersAndPhones() {
  using platform::FieldType;
  return {{"Customers",
           {Field("AcctNum", FieldType::Counter), TextField("LastName", 30), TextField("City", 30), Field("Balance", FieldType::Currency)},
           {{"PrimaryKey", {"AcctNum"}, true, true}, {"ByName", {"LastName"}, false, false}}},
          {"Phones",
           {Field("RecordID", FieldType::Counter), Field("AcctNum", FieldType::Long), TextField("Phone", 7)},
           {{"PrimaryKey", {"RecordID"}, true, true}, {"ByAcct", {"AcctNum"}, false, false}}}};
}

/// A desk behind a line that counts, and a list of 5,000 customers: 50 of each name.
class Trips : public ServerTest {
 protected:
  explicit Trips(const engine::postgres::Patience& patience = kAllOneMoment) : proxy(server_.Socket()) {
    Create("customer.zdb", CustomersAndPhones());
    Other("INSERT INTO orv1_customer.\"Customers\" (\"LastName\", \"City\", \"Balance\") SELECT 'Name' || lpad((n % 100)::text, 3, '0'), "
          "'City' || n, n FROM generate_series(1, 5000) AS n; ANALYZE");
    path = proxy.PathOf(database_) + "orv1/customer.zdb";
    engine = MakeDesk(patience);
  }

  static std::unique_ptr<platform::DataEngine> MakeDesk(const engine::postgres::Patience& patience) {
    engine::EngineOptions options;
    options.now = engine::LocalNow;
    return engine::MakeEngineOver(engine::OneStore(std::make_unique<engine::postgres::PostgresStore>(patience)), options);
  }

  std::uint64_t TripsOf(const std::function<void()>& act) const {
    const std::uint64_t before = proxy.Trips();
    act();
    return proxy.Trips() - before;
  }

  void OpenDatabase() { database = engine->OpenControlDatabase(path); }
  void OpenList() { list = database->OpenRecordset(kList, platform::RecordsetType::Dynaset); }
  std::vector<platform::ListRow> Page() { return list->Window().RowsAfter(list->Bookmark(), 49); }
  void ReadAllPlaces() {
    while (list->Window().IdleSlice()) {
    }
  }
  std::string NameHere() const { return list->Field("LastName").As<std::string>(); }

  CountingProxy proxy;
  std::string path;
  std::unique_ptr<platform::DataEngine> engine;
  platform::DatabaseRef database;
  platform::RecordsetRef list;
};
