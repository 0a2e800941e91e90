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

OtherUsers::~OtherUsers() = default;

std::string OtherUsers::PathOf(const std::string& file) const {
  if (platform::EqualsNoCase(file, "temp")) {
    if (!surroundings_.tempPath) throw ActionFailed("no temporary files here");
    return surroundings_.tempPath(user_.value_or(surroundings_.user));
  }
  if (!surroundings_.dataPath) throw ActionFailed("no data files here");
  return surroundings_.dataPath(company_.value_or(surroundings_.company), file);
}

OtherUsers::Session OtherUsers::Open(const std::string& file) const {
  if (!surroundings_.makeEngine) throw ActionFailed("no data engine here");
  Session session;
  session.engine = surroundings_.makeEngine();
  session.workspace = session.engine->CreateWorkspace("OtherUser", "Admin", "", kOwnWorkspaceType);
  session.engine->AppendWorkspace(session.workspace);
  session.database = session.workspace->OpenDatabase(PathOf(file));
  return session;
}

void OtherUsers::Run(const std::string& file, const std::string& statement) {
  Session session = Open(file);
  if (IsSelect(statement))
    session.database->OpenRecordset(statement)->Close();
  else
    session.database->Execute(statement, platform::dbFailOnError);
  session.workspace->Close();
}

std::optional<platform::Value> OtherUsers::ValueOf(const std::string& file, const std::string& statement) {
  Session session = Open(file);
  std::optional<platform::Value> value;
  const platform::RecordsetRef rows = session.database->OpenRecordset(statement, platform::RecordsetType::Snapshot);
  if (!rows->Eof()) value = rows->Field(0);
  rows->Close();
  session.workspace->Close();
  return value;
}

void OtherUsers::Drop(const std::string& file, const std::string& table) {
  if (!surroundings_.dropTable) throw ActionFailed("nothing that drops tables here");
  surroundings_.dropTable(PathOf(file), table);
}

void OtherUsers::Hold(const std::string& file, const std::string& statement) {
  Session session = Open(file);
  session.workspace->BeginTrans();
  session.database->Execute(statement, platform::dbFailOnError);
  held_.push_back(std::move(session));
}

void OtherUsers::Release() {
  for (Session& session : held_) session.workspace->CommitTrans();
  for (Session& session : held_) session.workspace->Close();
  held_.clear();
}

void OtherUsers::Undo() {
  for (Session& session : held_) session.workspace->Rollback();
  for (Session& session : held_) session.workspace->Close();
  held_.clear();
}

}  // namespace robot
