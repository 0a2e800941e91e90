#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "engine/data_file.h"
#include "engine/engine.h"
#include "platform/data/data.h"
#include "unit/engine/support/engine_fixture.h"
#include "unit/engine/support/office_files.h"

/// A small office: people with phones of several kinds, rates per department in
/// a second file, and an engine that has it open.
class OfficeTest : public EngineFolderTest {
 protected:
  explicit OfficeTest(std::int64_t exactRows = 20'000) : exactRows_(exactRows) {
    using platform::FieldType;
    const std::vector<platform::TableDefinition> office{
        {"People",
         {Field("ID", FieldType::Counter), TextField("Name", 10), TextField("City", 12),
          Field("Age", FieldType::Short, platform::Value(std::int16_t{0})), Field("Balance", FieldType::Currency),
          Field("Born", FieldType::Date), Field("Active", FieldType::Boolean, platform::Value(false)), Field("Note", FieldType::Memo)},
         {{"PrimaryKey", {"ID"}, true, true}, {"ByName", {"Name"}, false, false}}},
        {"Kinds", {TextField("Kind", 1), TextField("Title", 20)}, {{"PrimaryKey", {"Kind"}, true, true}}},
        {"Phones",
         {Field("RecordID", FieldType::Counter), Field("ID", FieldType::Long), TextField("Kind", 1), TextField("Number", 7)},
         {{"PrimaryKey", {"RecordID"}, true, true}, {"Kind", {"Kind"}, false, false}, {"xID", {"ID"}, false, false}}},
        {"Rates",
         {Field("ID", FieldType::Long), TextField("Dept", 3), Field("Adjustment", FieldType::Double)},
         {{"PrimaryKey", {"ID", "Dept"}, true, true}}},
        {"Words", {Field("ID", FieldType::Long), TextField("Word", 20)}, {}}};
    const std::vector<platform::TableDefinition> ledger{
        {"Departments",
         {TextField("DeptNumber", 3), TextField("DeptName", 20), Field("Rate", FieldType::Currency)},
         {{"PrimaryKey", {"DeptNumber"}, true, true}}}};
    office_files::Create(Path("office.zdb"), office);
    office_files::Create(Path("ledger.zdb"), ledger);
    Restart();
  }

  /// A new engine, as another start of the program.
  void Restart() {
    engine_.reset();
    engine_ = NewEngine();
    db_ = engine_->OpenControlDatabase(Path("office.zdb"));
  }
  std::unique_ptr<platform::DataEngine> NewEngine() const {
    engine::EngineOptions options;
    options.exactRows = exactRows_;
    options.lockWait = 150;
    options.readAheadTrust = 0;
    return office_files::NewEngine(options);
  }
  /// People by name alone, in this order; numbered from 1. Open recordsets of others see them as any writer's.
  void AddPeople(const std::vector<std::string>& names) {
    std::vector<std::vector<platform::Value>> rows;
    for (const std::string& name : names) rows.push_back({platform::Value(name)});
    AddRows("People", {"Name"}, rows);
  }
  void AddRows(const std::string& table, const std::vector<std::string>& fields, const std::vector<std::vector<platform::Value>>& rows) {
    office_files::AddRows(Path("office.zdb"), table, fields, rows);
  }
  void AddPerson(const std::string& name, const std::string& city, int age) {
    auto people = db_->OpenRecordset("People", platform::RecordsetType::Table);
    people->AddNew();
    people->SetField("Name", name);
    people->SetField("City", city);
    people->SetField("Age", age);
    people->Update();
    people->Close();
  }
  platform::RecordsetRef Table(const std::string& name) { return db_->OpenRecordset(name, platform::RecordsetType::Table); }
  platform::RecordsetRef Dynaset(const std::string& source) { return db_->OpenRecordset(source, platform::RecordsetType::Dynaset); }

  /// All values of a field, from the first row to the last.
  static std::vector<std::string> Texts(const platform::RecordsetRef& rows, const std::string& field) {
    std::vector<std::string> texts;
    if (rows->RecordCount() == 0) return texts;
    for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext()) texts.push_back(TextOf(rows->Field(field)));
    return texts;
  }
  static std::string TextOf(const platform::Value& value) {
    if (value.IsNull()) return "Null";
    if (value.IsText()) return value.As<std::string>();
    if (value.Kind() == platform::ValueKind::Long) return std::to_string(value.As<std::int32_t>());
    if (value.Kind() == platform::ValueKind::Short) return std::to_string(value.As<std::int16_t>());
    if (value.Kind() == platform::ValueKind::Boolean) return value.As<bool>() ? "True" : "False";
    return "?";
  }

  std::int64_t exactRows_;
  std::unique_ptr<platform::DataEngine> engine_;
  platform::DatabaseRef db_;
};

/// The same rules for both ways in which a dynaset keeps its rows: all keys
/// held (20,000), pages of an index (0).
class DynasetRules : public OfficeTest, public testing::WithParamInterface<std::int64_t> {
 protected:
  DynasetRules() : OfficeTest(GetParam()) {}
};
