#include "company.h"

namespace bench {
namespace {

constexpr int pageRows = 50;

void AddSeek(Company& company, std::vector<Job>& jobs) {
  const auto table = company.Data().OpenRecordset("Customers", platform::RecordsetType::Table);
  table->SetIndex("ByAcct");
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

// Both sides write the same text, so that the file is the same afterwards.
std::string TextOf(int call) { return "Suite " + std::to_string(call % 997); }

void AddSave(Company& company, std::vector<Job>& jobs) {
  struct State {
    platform::RecordsetRef list;
  };
  auto state = std::make_shared<State>();
  state->list = company.OpenList();
  Job save;
  save.name = "a saved change, the list rebuilt, standing on the row again";
  save.calls = 5;
  save.ours = [state, &company](int call) {
    const auto account = std::to_string(Pick(company.Somewhere(), call).account);
    state->list->FindFirst("[AcctNum]=" + account);
    state->list->Edit();
    state->list->SetField("Addr2", TextOf(call));
    state->list->Update();
    state->list->Close();
    state->list = company.OpenList();
    state->list->FindFirst("[AcctNum]=" + account);
    return SumOf(state->list->Window().RowsAfter(state->list->Bookmark(), pageRows));
  };
  save.raw = [&company](int call) {
    const raw::NameKey& row = Pick(company.Somewhere(), call);
    company.Raw().SaveAddress(row.account, TextOf(call));
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
