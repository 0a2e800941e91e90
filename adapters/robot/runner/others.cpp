#include "robot/runner/others.h"

#include "platform/values/text.h"
#include "robot/language/failure.h"

namespace robot {
namespace {

constexpr int kOwnWorkspaceType = 2;

bool IsSelect(const std::string& statement) {
  const std::size_t start = statement.find_first_not_of(" \t\r\n(");
  return start != std::string::npos && platform::EqualsNoCase(statement.substr(start, 6), "select");
}

}  // namespace

std::string OtherUsers::PathOf(const std::string& file) const {
  if (platform::EqualsNoCase(file, "temp")) {
    if (!surroundings_.tempPath) throw ActionFailed("no temporary files here");
    return surroundings_.tempPath(user_.value_or(surroundings_.user));
  }
  if (!surroundings_.dataPath) throw ActionFailed("no data files here");
  return surroundings_.dataPath(company_.value_or(surroundings_.company), file);
}

OtherUsers::OwnFile OtherUsers::Open(const std::string& file) const {
  if (!surroundings_.makeEngine) throw ActionFailed("no data engine here");
  OwnFile own;
  own.engine = surroundings_.makeEngine();
  own.workspace = own.engine->CreateWorkspace("OtherUser", "Admin", "", kOwnWorkspaceType);
  own.engine->AppendWorkspace(own.workspace);
  own.database = own.workspace->OpenDatabase(PathOf(file));
  return own;
}

void OtherUsers::Run(const std::string& file, const std::string& statement) {
  OwnFile own = Open(file);
  if (IsSelect(statement))
    own.database->OpenRecordset(statement)->Close();
  else
    own.database->Execute(statement, platform::dbFailOnError);
  own.workspace->Close();
}

std::optional<platform::Value> OtherUsers::ValueOf(const std::string& file, const std::string& statement) {
  OwnFile own = Open(file);
  std::optional<platform::Value> value;
  const platform::RecordsetRef rows = own.database->OpenRecordset(statement, platform::RecordsetType::Snapshot);
  if (!rows->Eof()) value = rows->Field(0);
  rows->Close();
  own.workspace->Close();
  return value;
}

void OtherUsers::Drop(const std::string& file, const std::string& table) {
  if (!surroundings_.dropTable) throw ActionFailed("nothing that drops tables here");
  surroundings_.dropTable(PathOf(file), table);
}

void OtherUsers::Hold(const std::string& file, const std::string& statement) {
  OwnFile own = Open(file);
  own.workspace->BeginTrans();
  own.database->Execute(statement, platform::dbFailOnError);
  held_.push_back(std::move(own));
}

void OtherUsers::Release() {
  for (OwnFile& own : held_) own.workspace->CommitTrans();
  for (OwnFile& own : held_) own.workspace->Close();
  held_.clear();
}

void OtherUsers::Undo() {
  for (OwnFile& own : held_) own.workspace->Rollback();
  for (OwnFile& own : held_) own.workspace->Close();
  held_.clear();
}

}  // namespace robot
