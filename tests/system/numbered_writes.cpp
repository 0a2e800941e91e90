#include "system/numbered_writes.h"

#include <filesystem>
#include <map>
#include <optional>

#include "engine/data_file.h"
#include "engine/engine.h"
#include "platform/values/convert.h"
#include "platform/values/error.h"
#include "suite/company_schema.h"
#include "suitefiles/company/company_maker.h"

namespace system_test {
namespace {

using platform::Value;

constexpr int kLongText = 30'000;

/// A text of several pages that tells the number anywhere.
std::string LongText(std::int64_t number) {
  const std::string mark = std::to_string(number) + "|";
  std::string text;
  while (text.size() + mark.size() <= kLongText) text += mark;
  return text;
}

std::int32_t StandingOf(std::int64_t number) {
  return static_cast<std::int32_t>(WriterOf(number) * kStanding + (number / 4) % kStanding + 1);
}

/// The fields that a write sets, but for those that name the row.
struct Stamped {
  const char* field;
  Value value;
};
std::vector<Stamped> Stamp(std::int64_t number) {
  const std::string text = std::to_string(number);
  const auto whole = static_cast<std::int32_t>(number);
  return {{"FirstName", text}, {"Addr1", text},      {"Addr2", text},
          {"City", text},      {"EMail", text},      {"WebSite", text},
          {"Latitude", whole}, {"Longitude", whole}, {"Comments", LongText(number)}};
}

void Add(platform::Database& database, std::int64_t number) {
  const auto rows = database.OpenRecordset("Customers", platform::RecordsetType::Table);
  rows->AddNew();
  rows->SetField("LastName", "Add");
  for (const Stamped& stamped : Stamp(number)) rows->SetField(stamped.field, stamped.value);
  rows->Update();
  rows->Close();
}

void Change(platform::Database& database, std::int64_t number) {
  const auto rows = database.OpenRecordset("Customers", platform::RecordsetType::Table);
  rows->SetIndex("ByAcct");
  rows->Seek("=", {StandingOf(number)});
  if (rows->NoMatch()) throw platform::Error(3021, "a standing customer is missing");
  rows->Edit();
  for (const Stamped& stamped : Stamp(number)) rows->SetField(stamped.field, stamped.value);
  rows->Update();
  rows->Close();
}

/// The number that every stamped field of the row tells; nothing when they differ.
std::optional<std::int64_t> StampOf(const platform::Recordset& row) {
  const std::int64_t number = platform::CLng(row.Field("Latitude"));
  for (const Stamped& stamped : Stamp(number))
    if (!(row.Field(stamped.field) == stamped.value)) return std::nullopt;
  return number;
}

class Comparison {
 public:
  Comparison(const std::string& file, const Ledger& ledger) : session_(file), ledger_(ledger) {}

  std::vector<std::string> Run() {
    ReadCustomers();
    ReadBatches();
    for (const std::int64_t number : ledger_.acknowledged) MustBeThere(number);
    return std::move(wrong_);
  }

 private:
  void Wrong(std::int64_t number, const std::string& what) { wrong_.push_back("write " + std::to_string(number) + " " + what); }

  void MayBeThere(std::int64_t number, Kind kind) {
    if (KindOf(number) != kind) return Wrong(number, "is there as a write of another kind");
    if (!ledger_.acknowledged.contains(number) && !ledger_.uncertain.contains(number)) Wrong(number, "was never begun and is there");
  }

  void ReadCustomers() {
    const auto rows = session_.Database().OpenRecordset("Customers", platform::RecordsetType::Table);
    for (; !rows->Eof(); rows->MoveNext()) {
      const std::int32_t account = platform::CLng(rows->Field("AcctNum"));
      const auto number = StampOf(*rows);
      if (!number) {
        wrong_.push_back("customer " + std::to_string(account) + " holds half a write");
      } else if (platform::CStr(rows->Field("LastName")) == "Add") {
        if (!added_.insert(*number).second) Wrong(*number, "is there twice");
        MayBeThere(*number, Kind::Add);
      } else {
        standing_[account] = *number;
        if (*number != 0) MayBeThere(*number, Kind::Change);
      }
    }
  }

  void ReadBatches() {
    const auto rows = session_.Database().OpenRecordset("CustCodes", platform::RecordsetType::Table);
    for (; !rows->Eof(); rows->MoveNext()) ++batches_[platform::CLng(rows->Field("AcctNum"))];
    for (const auto& [number, count] : batches_) {
      MayBeThere(number, Kind::Batch);
      if (count != kBatchRows) Wrong(number, "is there by " + std::to_string(count) + " rows");
    }
  }

  void MustBeThere(std::int64_t number) {
    switch (KindOf(number)) {
      case Kind::Add:
        if (!added_.contains(number)) Wrong(number, "was acknowledged and the customer is not there");
        break;
      case Kind::Change:
        // A later change of the same customer may stand there.
        if (standing_[StandingOf(number)] < number) Wrong(number, "was acknowledged and the change is not there");
        break;
      case Kind::Batch: {
        const std::int64_t removal = number + 1;
        const bool mayBeRemoved =
            KindOf(removal) == Kind::Remove && (ledger_.acknowledged.contains(removal) || ledger_.uncertain.contains(removal));
        if (!batches_.contains(static_cast<std::int32_t>(number)) && !mayBeRemoved)
          Wrong(number, "was acknowledged and the batch is not there");
        break;
      }
      case Kind::Remove:
        if (batches_.contains(static_cast<std::int32_t>(number - 1))) Wrong(number, "was acknowledged and the batch is still there");
        break;
    }
  }

  Session session_;
  const Ledger& ledger_;
  std::set<std::int64_t> added_;
  std::map<std::int32_t, std::int64_t> standing_;
  std::map<std::int32_t, int> batches_;
  std::vector<std::string> wrong_;
};

}  // namespace

Kind KindOf(std::int64_t number) {
  switch (number % 8) {
    case 1:
    case 5:
      return Kind::Change;
    case 2:
    case 6:
      return Kind::Batch;
    case 7:
      return Kind::Remove;
    default:
      return Kind::Add;
  }
}

std::string CustomerFile(const std::string& folder) { return folder + "/data/orv1/customer.zdb"; }

void MakeCompany(const std::string& folder) {
  std::filesystem::create_directories(folder + "/data/orv1");
  suitefiles::MakeCompanyFiles(folder + "/data/orv1", 2025);
  suitefiles::CompanyRecord company;
  company.name = "Company 1";
  suitefiles::AddCompanyRow(folder + "/dat.zdb", company);
  Session session(CustomerFile(folder));
  for (std::int16_t code = 1; code <= kBatchRows; ++code)
    session.Database().Execute("INSERT INTO DataCodes (Code, Description) VALUES (" + std::to_string(code) + ", 'x')");
  const auto rows = session.Database().OpenRecordset("Customers", platform::RecordsetType::Table);
  for (int i = 0; i < kWriters * kStanding; ++i) {
    rows->AddNew();
    rows->SetField("LastName", "Standing");
    for (const Stamped& stamped : Stamp(0)) rows->SetField(stamped.field, stamped.value);
    rows->Update();
  }
}

Session::Session(const std::string& file) : engine_(engine::MakeEngine()) {
  workspace_ = engine_->CreateWorkspace("system test", "Admin", "", 2);
  engine_->AppendWorkspace(workspace_);
  database_ = workspace_->OpenDatabase(file);
}

void Perform(platform::Database& database, std::int64_t number) {
  const std::string text = std::to_string(number);
  switch (KindOf(number)) {
    case Kind::Add:
      return Add(database, number);
    case Kind::Change:
      return Change(database, number);
    case Kind::Batch:
      return database.Execute("INSERT INTO CustCodes (AcctNum, CustCodes) SELECT " + text + " AS AcctNum, Code FROM DataCodes",
                              platform::dbFailOnError);
    case Kind::Remove:
      return database.Execute("DELETE FROM CustCodes WHERE AcctNum=" + std::to_string(number - 1), platform::dbFailOnError);
  }
}

std::vector<std::string> Compare(const std::string& file, const Ledger& ledger) { return Comparison(file, ledger).Run(); }

}  // namespace system_test
