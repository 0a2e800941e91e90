#include "platform/services/data_path.h"
#include "session/ModCustSch.h"
#include "session/failures.h"
#include "session/modAppShutdown.h"
#include "session/recordsets.h"

namespace orcussch {

using platform::DatabaseRef;

namespace {

void OpenWorkspace() {
  gWorkspaceName = "CustomerSearch#" + std::to_string(App().ThreadID());
  wsCustomer = App().Engine().CreateWorkspace(gWorkspaceName, "Admin", "", 2);
  App().Engine().AppendWorkspace(wsCustomer);
}

void OpenDatabases() {
  gCustomerPath = GetDataPath(gCompanyID, "customer.zdb");
  dbCustomer = wsCustomer->OpenDatabase(gCustomerPath);
  gARTransPath = GetDataPath(gCompanyID, "artrans.zdb");
  dbARTrans = wsCustomer->OpenDatabase(gARTransPath);
  dbDat = wsCustomer->OpenDatabase(GetDataPath(gCompanyID, "dat.zdb"));
  gGLPath = GetDataPath(gCompanyID, "GL.zdb");
  dbGL = wsCustomer->OpenDatabase(gGLPath);
  dbTemp = wsCustomer->OpenDatabase(gTempPath);
}

bool HasTable(const DatabaseRef& Db, const std::string& Name) {
  const int count = Db->TableDefCount();
  for (int i = 0; i < count; ++i)
    if (Db->TableDefAt(i).Name == Name) return true;
  return false;
}

void LinkTables() {
  const std::pair<std::string, std::string> links[] = {{"Departments", gGLPath}, {"Transactions", gARTransPath}};
  for (const auto& [table, path] : links) {
    if (HasTable(dbCustomer, table) || LinkTable(dbCustomer, table, path)) continue;
    App().MsgBox("The " + table + " table in " + path + " can not be linked to the Customers database!",
                 platform::box::Stop + platform::box::OkOnly, "Customer Maintenance");
  }
}

}  // namespace

std::string GetDataPath(std::int32_t CompanyID, const std::string& FileName) {
  std::string path;
  Trap("modCustSch.GetDataPath", [&] { path = platform::DataPath(App().System(), App().Path(), CompanyID, FileName); });
  return path;
}

void ForgetFiles() {
  for (const SessionRecordset& one : kSessionRecordsets) one.rows.Reset();
  for (DatabaseRef* database : {&dbCustomer, &dbDat, &dbARTrans, &dbGL, &dbTemp}) database->Reset();
  wsCustomer.Reset();
}

void ReleaseFiles() {
  if (App().FormCount() > 0) SafeAppUnloadAllForms();
  if (!wsCustomer.IsNothing()) Ignore()([] { wsCustomer->Close(); });
  ForgetFiles();
  gCustomerPath = gARTransPath = gGLPath = "";
  gCompany = CompanyRecord{};
  gRightsMask = "";
  gDefaultTerms = 0;
}

void OpenFiles() {
  Trap("modCustSch.OpenFiles", [] {
    if (gFilesOpen) return;
    OpenWorkspace();
    OpenDatabases();
    for (const SessionRecordset& one : kSessionRecordsets) one.rows = one.open();
    GetCompanyRecord();
    LinkTables();
    App().DoEvents();
  });
}

bool LinkTable(const DatabaseRef& Db, const std::string& TableName, const std::string& Path) {
  return Ignore()([&] {
    platform::TableDef link = Db->CreateTableDef(TableName);
    link.Connect = ";DATABASE=" + Path;
    link.SourceTableName = TableName;
    Db->AppendTableDef(link);
  });
}

void CloseFiles() {
  if (!gFilesOpen) return;
  const Ignore on;
  on([] { App().DoEvents(); });
  for (const SessionRecordset& one : kSessionRecordsets) on([&] { one.rows->Close(); });
  for (DatabaseRef* database : {&dbARTrans, &dbDat, &dbCustomer, &dbGL}) on([&] { (*database)->Close(); });
  on([] { App().DoEvents(); });
  for (DatabaseRef* database : {&dbARTrans, &dbDat, &dbCustomer, &dbGL}) database->Reset();
}

void ExecuteSQLStmt(const DatabaseRef& Db, const std::string& SQL, bool FailOnError, bool& ErrorFlag) {
  ResumeNext on("modCustSch.ExecuteSQLStmt", [&] { ErrorFlag = true; });
  on([] { App().DoEvents(); });
  on([] { App().Engine().WorkspaceAt(0)->BeginTrans(); });
  ErrorFlag = false;
  on([&] { Db->Execute(SQL, FailOnError ? platform::dbFailOnError : 0); });
  on([] { App().DoEvents(); });
  if (ErrorFlag)
    on([] { App().Engine().WorkspaceAt(0)->Rollback(); });
  else
    on([] { App().Engine().WorkspaceAt(0)->CommitTrans(); });
  on([] { App().DoEvents(); });
}

void ClearORVTempTable(const std::string& TableName, bool& ErrorFlag) {
  const bool ran = Trap("modCustSch.ClearORVTempTable", [&] {
    ExecuteSQLStmt(dbTemp, "Delete * From " + TableName + ";", true, ErrorFlag);
    App().DoEvents();
  });
  if (!ran) ErrorFlag = true;
}

}  // namespace orcussch
