#include <chrono>

#include "company.h"

namespace bench {
namespace {

constexpr int pageRows = 50;

void RequireSameSeek(Company& company, platform::Recordset& table) {
  for (int i = 0; i < 20; ++i) {
    const auto account = static_cast<std::int32_t>(Pick(company.Somewhere(), i).account);
    table.Seek("=", {account});
    platform::ListRow row;
    for (int field = 0; field < static_cast<int>(table.Fields().size()); ++field) row.cells.push_back(table.Field(field));
    RequireSameCells({row}, company.Raw().Seek(account));
  }
}

void AddSeek(Company& company, std::vector<Job>& jobs) {
  const auto table = company.Data().OpenRecordset("Customers", platform::RecordsetType::Table);
  table->SetIndex("ByAcct");
  RequireSameSeek(company, *table);
  Job seek;
  seek.name = "Seek, all columns read";
  seek.ours = [table, &company](int call) {
    const auto account = static_cast<std::int32_t>(Pick(company.Somewhere(), call).account);
    table->Seek("=", {account});
    std::vector<platform::Value> row;
    const int columns = static_cast<int>(table->Fields().size());
    row.reserve(static_cast<std::size_t>(columns));
    for (int i = 0; i < columns; ++i) row.push_back(table->Field(i));
    return static_cast<std::uint64_t>(row[0].As<std::int32_t>());
  };
  seek.raw = [&company](int call) { return SumOf(company.Raw().Seek(Pick(company.Somewhere(), call).account)); };
  seek.mostRatio = 1.25;
  jobs.push_back(seek);
}

// Always of one length and always new, for each side and each run: a row that is as it was would not be written at all.
std::string NewText(char side) {
  static const auto run = std::chrono::system_clock::now().time_since_epoch() / std::chrono::seconds(1) % 1'000'000;
  static std::int64_t number = 0;
  return "Suite " + std::to_string(1'000'000 + run) + ' ' + std::to_string(1'000'000 + ++number) + side;
}

void AddSave(Company& company, std::vector<Job>& jobs) {
  const auto list = std::make_shared<platform::RecordsetRef>(company.OpenList());
  const auto criterion = [&company](int call) { return "[AcctNum]=" + std::to_string(Pick(company.Somewhere(), call).account); };
  Job save;
  save.name = "a saved change, the list rebuilt, standing on the row again";
  save.calls = 5;
  // Who saves stands on the row already, and has read it.
  save.readyOurs = [list, criterion](int call) { (*list)->FindFirst(criterion(call)); };
  save.ours = [list, criterion, &company](int call) {
    (*list)->Edit();
    (*list)->SetField("Addr2", NewText('a'));
    (*list)->Update();
    (*list)->Close();
    *list = company.OpenList();
    (*list)->FindFirst(criterion(call));
    return SumOf((*list)->Window().RowsAfter((*list)->Bookmark(), pageRows));
  };
  save.readyRaw = [&company](int call) { company.Raw().Seek(Pick(company.Somewhere(), call).account); };
  save.raw = [&company](int call) {
    const raw::NameKey& row = Pick(company.Somewhere(), call);
    company.Raw().SaveAddress(row.account, NewText('b'));
    return SumOf(company.Raw().After(row, pageRows));
  };
  save.mostRatio = 1.2;
  jobs.push_back(save);
}

}  // namespace

std::vector<Job> RecordJobs(Company& company) {
  std::vector<Job> jobs;
  AddSeek(company, jobs);
  AddSave(company, jobs);
  return jobs;
}

}  // namespace bench
