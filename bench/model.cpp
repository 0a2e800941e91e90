// The toolkit's own table model on the same file and the same jobs. Its connection learns our text order, without which
// it could read no name in order.
#include <sqlite3.h>

#include <QCoreApplication>
#include <QSqlDatabase>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlTableModel>
#include <QVariant>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <stdexcept>
#include <string>

#include "company.h"
#include "engine/text/text_order.h"

namespace {

constexpr int pageRows = 50;

int Collate(void*, int leftSize, const void* left, int rightSize, const void* right) {
  return engine::CompareText({static_cast<const char*>(left), static_cast<std::size_t>(leftSize)},
                             {static_cast<const char*>(right), static_cast<std::size_t>(rightSize)});
}

QSqlDatabase Open(const std::string& folder) {
  auto data = QSqlDatabase::addDatabase("QSQLITE");
  data.setDatabaseName(QString::fromStdString(folder + "/data/orv1/customer.zdb"));
  if (!data.open()) throw std::runtime_error(data.lastError().text().toStdString());
  const QVariant handle = data.driver()->handle();
  if (std::string(handle.typeName()) != "sqlite3*") throw std::runtime_error("the toolkit's driver has another store");
  auto* store = *static_cast<sqlite3* const*>(handle.constData());
  sqlite3_create_collation_v2(store, "GENERAL", SQLITE_UTF8, nullptr, Collate, nullptr);
  QSqlQuery(data).exec("PRAGMA cache_size=-8192");
  return data;
}

std::uint64_t ReadRows(const QSqlTableModel& model, int from, int count) {
  std::uint64_t sum = 0;
  for (int row = from; row < from + count && row < model.rowCount(); ++row) {
    for (int column = 1; column < model.columnCount(); ++column) model.data(model.index(row, column));
    sum = sum * 31 + static_cast<std::uint64_t>(model.data(model.index(row, 0)).toLongLong());
  }
  return sum;
}

void Select(QSqlTableModel& model, int column) {
  model.setTable("Customers");
  model.setSort(column, Qt::AscendingOrder);
  if (!model.select()) throw std::runtime_error(model.lastError().text().toStdString());
}

std::vector<bench::Job> Jobs(bench::Company& company, const QSqlDatabase& data) {
  const auto name = [&data] { return QSqlTableModel(nullptr, data); };
  std::vector<bench::Job> jobs;
  bench::Job opening;
  opening.name = "open the list, 50 rows";
  opening.sameResult = false;  // it leaves the order of equal names to the store
  opening.ours = [&company](int) {
    const auto list = company.OpenList();
    const auto sum = bench::SumOf(list->Window().RowsAt(0, pageRows));
    list->Close();
    return sum;
  };
  opening.raw = [name](int) {
    auto model = name();
    Select(model, 1);
    return ReadRows(model, 0, pageRows);
  };
  jobs.push_back(opening);

  bench::Job heading = opening;
  heading.name = "order by a field without index, first 50 rows";
  heading.calls = 1;
  heading.ours = [&company](int) {
    const auto list = company.Data().OpenRecordset("SELECT * FROM Customers ORDER BY Addr1");
    const auto sum = bench::SumOf(list->Window().RowsAt(0, pageRows));
    list->Close();
    return sum;
  };
  heading.raw = [name](int) {
    auto model = name();
    Select(model, 4);
    return ReadRows(model, 0, pageRows);
  };
  jobs.push_back(heading);

  bench::Job last = opening;
  last.name = "last page (the model fetches up to it)";
  last.calls = 1;
  last.ours = [&company](int) {
    const auto list = company.OpenList();
    const auto sum = bench::SumOf(list->Window().LastRows(pageRows));
    list->Close();
    return sum;
  };
  last.raw = [name](int) {
    auto model = name();
    Select(model, 1);
    while (model.canFetchMore()) model.fetchMore();
    return ReadRows(model, model.rowCount() - pageRows, pageRows);
  };
  jobs.push_back(last);
  return jobs;
}

}  // namespace

int main(int count, char** words) {
  if (count < 2) {
    std::cerr << "bench_model DIR [PAIRS [JOB TEXT]]: engine beside the toolkit's table model\n";
    return 2;
  }
  try {
    const QCoreApplication application(count, words);
    bench::Company company(words[1]);
    auto data = Open(words[1]);
    const std::size_t pairs = count > 2 ? std::stoul(words[2]) : 21;
    const std::string only = count > 3 ? words[3] : "";
    std::cout << "\n" << company.Rows() << " customers; \"raw\" is the table model here\n\n" << bench::TableHead();
    for (const bench::Job& job : Jobs(company, data))
      if (job.name.find(only) != std::string::npos) std::cout << bench::TableLine(bench::Measure(job, pairs)) << std::flush;
    std::cout << "\nPeak of this process: " << bench::PeakMemory() << " MiB\n";
    return EXIT_SUCCESS;
  } catch (const std::exception& error) {
    std::cerr << "bench_model: " << error.what() << "\n";
    return EXIT_FAILURE;
  }
}
