// The toolkit's own table model on the same company and the same jobs: on a file, whose connection learns our text order, without which it
// could read no name in order, and on a server, where it orders by our key columns.
#include <sqlite3.h>

#include <QCoreApplication>
#include <QSqlDatabase>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlTableModel>
#include <QVariant>
#include <functional>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>

#include "company.h"
#include "engine/store/postgres/link/target.h"
#include "engine/text/text_order.h"
#include "options.h"
#include "platform/services/data_path.h"
#include "server/branch.h"

namespace {

constexpr int pageRows = 50;
constexpr const char* usage =
    "bench_model [--pairs N] [--only TEXT] DIR|postgresql://HOST/DATABASE/orv1/\n"
    "The engine beside the toolkit's table model.\n";

/// What the model reads, and what it calls the fields.
struct Table {
  QSqlDatabase data;
  QString name, lastName, address;
  QString smi;  ///< names that begin with "Smi", as its filter
};

/// The engine's side.
struct Sides {
  std::function<platform::RecordsetRef(const std::string& statement)> open;
  std::function<bench::Job()> begin;
  Table table;
};

int Collate(void*, int leftSize, const void* left, int rightSize, const void* right) {
  return engine::CompareText({static_cast<const char*>(left), static_cast<std::size_t>(leftSize)},
                             {static_cast<const char*>(right), static_cast<std::size_t>(rightSize)});
}

Table OpenFile(const std::string& folder) {
  auto data = QSqlDatabase::addDatabase("QSQLITE");
  data.setDatabaseName(QString::fromStdString(folder + "/data/orv1/customer.zdb"));
  if (!data.open()) throw std::runtime_error(data.lastError().text().toStdString());
  const QVariant handle = data.driver()->handle();
  if (std::string(handle.typeName()) != "sqlite3*") throw std::runtime_error("the toolkit's driver has another store");
  auto* store = *static_cast<sqlite3* const*>(handle.constData());
  sqlite3_create_collation_v2(store, "GENERAL", SQLITE_UTF8, nullptr, Collate, nullptr);
  QSqlQuery(data).exec("PRAGMA cache_size=-8192");
  return {data, "Customers", "LastName", "Addr1", "LastName >= 'smi' AND LastName < 'smj'"};
}

// The model can't name a field with a point in it, so that it reads a view, which costs the server nothing.
Table OpenServer(const std::string& place) {
  const auto target = engine::postgres::ParseTarget(place + "customer.zdb");
  auto data = QSqlDatabase::addDatabase("QPSQL");
  data.setHostName(QString::fromStdString(target.hosts));
  data.setDatabaseName(QString::fromStdString(target.database));
  data.setUserName(qEnvironmentVariable("PGUSER"));
  if (!data.open()) throw std::runtime_error(data.lastError().text().toStdString());
  const bench::bare::Server bare(place);
  QSqlQuery view(data);
  if (!view.exec(QString::fromStdString(
          "CREATE TEMP VIEW customers_of_model AS SELECT " + bare.Columns() +
          R"(, c."~k.LastName" AS name_key, coalesce(c."~s.Addr1", lower(c."Addr1" COLLATE "C")) AS address_key FROM )" +
          bench::bare::Server::Table("Customers") + " c")))
    throw std::runtime_error(view.lastError().text().toStdString());
  return {data, "customers_of_model", "name_key", "address_key", "name_key >= 'smi' AND name_key < 'smi' || chr(127)"};
}

std::uint64_t ReadRows(const QSqlTableModel& model, int from, int count) {
  std::uint64_t sum = 0;
  for (int row = from; row < from + count && row < model.rowCount(); ++row) {
    for (int column = 1; column < model.columnCount(); ++column) model.data(model.index(row, column));
    sum = sum * 31 + static_cast<std::uint64_t>(model.data(model.index(row, 0)).toLongLong());
  }
  return sum;
}

std::unique_ptr<QSqlTableModel> Selected(const Table& table, const QString& order, const QString& filter = {}) {
  auto model = std::make_unique<QSqlTableModel>(nullptr, table.data);
  model->setTable(table.name);
  model->setSort(model->fieldIndex(order), Qt::AscendingOrder);
  model->setFilter(filter);
  if (!model->select()) throw std::runtime_error(model->lastError().text().toStdString());
  if (model->rowCount() == 0) throw std::runtime_error("the model has no rows");
  return model;
}

const std::string kNames = "SELECT * FROM Customers ORDER BY LastName";

std::vector<bench::Job> Jobs(const Sides& sides) {
  // It leaves the order of equal names to the store, so that the sides differ.
  const auto begin = [&sides](const std::string& name, bench::Job::Work ours, bench::Job::Work raw) {
    bench::Job job = sides.begin();
    job.name = name;
    job.calls = 1;
    job.sameResult = false;
    job.ours = std::move(ours);
    job.raw = std::move(raw);
    return job;
  };
  const auto firstPage = [&sides](const std::string& statement) {
    return [&sides, statement](int) {
      const auto list = sides.open(statement);
      const auto sum = bench::SumOf(list->Window().RowsAt(0, pageRows));
      list->Close();
      return sum;
    };
  };
  const auto selected = [&sides](const QString& order) {
    return [&sides, order](int) { return ReadRows(*Selected(sides.table, order), 0, pageRows); };
  };
  const auto last = [&sides](int) {
    const auto list = sides.open(kNames);
    const auto sum = bench::SumOf(list->Window().LastRows(pageRows));
    list->Close();
    return sum;
  };
  const auto fetched = [&sides](int) {
    const auto model = Selected(sides.table, sides.table.lastName);
    while (model->canFetchMore()) model->fetchMore();
    return ReadRows(*model, model->rowCount() - pageRows, pageRows);
  };
  const auto found = [&sides](int) {
    const auto list = sides.open(kNames);
    list->FindFirst("LastName Like 'Smi*'");
    if (list->NoMatch()) throw std::runtime_error("nobody found");
    const auto sum = bench::SumOf(list->Window().RowsAfter(list->Bookmark(), pageRows - 1));
    list->Close();
    return sum;
  };
  const auto filtered = [&sides](int) { return ReadRows(*Selected(sides.table, sides.table.lastName, sides.table.smi), 0, pageRows); };
  return {
      begin("open the list, 50 rows", firstPage(kNames), selected(sides.table.lastName)),
      begin("last page (the model fetches up to it)", last, fetched),
      begin("list opened, first name that starts with Smi and the page there (the model: its filter)", found, filtered),
      begin("order by a field without index, first 50 rows", firstPage("SELECT * FROM Customers ORDER BY Addr1"),
            selected(sides.table.address)),
  };
}

void Measure(const Sides& sides, std::int64_t rows, std::size_t pairs, const std::string& only) {
  std::cout << "\n" << rows << " customers; \"raw\" is the table model here\n\n" << bench::TableHead();
  for (const bench::Job& job : Jobs(sides))
    if (job.name.find(only) != std::string::npos) std::cout << bench::TableLine(bench::Measure(job, pairs)) << std::flush;
  std::cout << "\nPeak of this process: " << bench::PeakMemory() << " MiB\n";
}

}  // namespace

int main(int count, char** words) {
  return bench::RunProgram("bench_model", usage, [&] {
    const QCoreApplication application(count, words);
    std::size_t pairs = 21;
    std::string only;
    const auto places = bench::OptionWords().Number("--pairs", pairs).Text("--only", only).Read(count, words);
    if (places.size() != 1) throw std::invalid_argument("DIR");
    if (platform::IsServerPath(places[0])) {
      bench::branch::Company company(places[0]);
      Table table = OpenServer(places[0]);
      QSqlQuery pid(table.data);
      if (!pid.exec("SELECT pg_backend_pid()") || !pid.next()) throw std::runtime_error("no process of the model's");
      const auto begin = [&company, backend = pid.value(0).toInt()] {
        bench::Job job = company.Begin("", 0);
        job.elsewhereRaw = [backend] { return bench::bare::ProcessorOf(backend); };
        return job;
      };
      Measure({[&company](const std::string& statement) { return company.Open(statement); }, begin, table}, company.Rows(), pairs, only);
    } else {
      bench::Company company(places[0]);
      Measure({[&company](const std::string& statement) { return company.Data().OpenRecordset(statement); }, [] { return bench::Job(); },
               OpenFile(places[0])},
              company.Rows(), pairs, only);
    }
  });
}
