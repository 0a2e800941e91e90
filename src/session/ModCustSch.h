#pragma once

#include <cstdint>
#include <string>

#include "platform/data/data.h"
#include "platform/host/application.h"

/// The session: what every screen uses directly. One session per loaded library; it opens with the company number and ends
/// with the shutdown, which walks the engine's own collections.
namespace orcussch {

/// The working company, read once a session from table Company of dat.zdb. Texts have the fixed lengths given.
struct CompanyRecord {
  std::string CompName = std::string(40, ' ');  ///< also the public property Company
  std::string Addr1 = std::string(40, ' ');
  std::string Addr2 = std::string(40, ' ');
  std::string City = std::string(25, ' ');
  std::string State = std::string(2, ' ');
  std::string Zip = std::string(10, ' ');
  std::string Country = std::string(30, ' ');
  std::string Phone = std::string(10, ' ');
  std::string Fax = std::string(10, ' ');
  std::int16_t BeginningMonth = 0;  ///< first month of the fiscal year, 1 to 12
  std::string Owner = std::string(40, ' ');
  std::string FIN = std::string(11, ' ');  ///< tax number
  std::uint8_t AccountingEntity = 0;       ///< 0 to 2
};

// Who works, for which company.
inline std::int32_t gUserID = 0;
inline std::int32_t gCompanyID = 0;
inline CompanyRecord gCompany;
inline std::int32_t gDefaultTerms = 0;  ///< PayTerms of the company's AR row: the terms of a new customer
inline bool gAddPhone = false;          ///< after saving a new customer go straight to adding a phone number
inline std::string gRightsMask;         ///< 80 characters, kept for the suite; nothing here reads it

// What the host asked for.
inline std::string gBillingStatus;     ///< "B" billable, "N" non-billable customers only, else all
inline bool gNonSelection = false;     ///< maintenance only: no customer can be selected
inline std::int32_t gHostAcctNum = 0;  ///< the account on which the list opens

// The answer.
inline std::int32_t gSelAcctNum = 0;
inline std::string gCustomerFirstName, gCustomerLastName, gCustomerTitle;
inline std::string gCustomerAddr1, gCustomerAddr2, gCustomerCity, gCustomerState, gCustomerZip;

// The query in force.
inline std::string gQuerySQL;        ///< the customer list's whole statement, "" for all customers
inline std::string gQueryText;       ///< what it asks, in words for the user; "" when nobody put it into words
inline bool gFirstActivate = false;  ///< the main screen rebuilds its list when it becomes active

// Files.
inline std::string gCustomerPath, gARTransPath, gGLPath, gTempPath;
inline std::string gTempDir, gSysModsDir, gUpdateDir, gIniPath;
inline std::string gWorkspaceName;
inline bool gFilesOpen = false;  ///< never set: each CompanyID opens a new set of objects
inline platform::WorkspaceRef wsCustomer;
inline platform::DatabaseRef dbCustomer, dbDat, dbARTrans, dbGL, dbTemp;
inline platform::RecordsetRef rsCustomers, rsLookups, rsPhones, rsKeywords, rsLocations, rsTaxGrid, rsCustCodes, rsDataCodes,
    rsSuperCustomers, rsTerms, rsAddresses, rsCustCreditCards, rsCustLaborRates;
inline platform::RecordsetRef rsUserStartup, rsAR;

/// The application that the host put together. Set before the first CustSearch; setting another one begins a new module.
platform::Application& App();
void AttachApplication(platform::Application* application);

/// Once, at first use: the temporary folder and its neighbours.
void Main();

/// Full path of a company's database file: the ini file's own key, its default path, or the standard folders. "" after a
/// failure, which is reported.
std::string GetDataPath(std::int32_t CompanyID, const std::string& FileName);

/// Lets go of all that was opened for a company: the screens, the recordsets, databases and the workspace, and what was read
/// from them. Nothing of one company can be met in the session of the next.
void ReleaseFiles();

/// Empties the variables of the opened objects, which stay as they are.
void ForgetFiles();

/// Opens workspace, databases and the session's recordsets, reads the company, links the two tables of other files.
void OpenFiles();
void CloseFiles();

/// Stores a link in a database; false when it can't be made, without a report.
bool LinkTable(const platform::DatabaseRef& Db, const std::string& TableName, const std::string& Path);

/// The one path for action SQL. A failure is reported and sets ErrorFlag. Without FailOnError rows that the engine can't
/// insert are left out in silence.
void ExecuteSQLStmt(const platform::DatabaseRef& Db, const std::string& SQL, bool FailOnError, bool& ErrorFlag);

/// Empties a work table of the temporary database.
void ClearORVTempTable(const std::string& TableName, bool& ErrorFlag);

/// A text in a statement or a criterion, in apostrophes; its own are doubled, so that they stand for themselves.
std::string Quoted(const std::string& Text);

/// The clause that sends a statement's rows to another file: IN 'path', with a blank in front.
std::string InFile(const std::string& Path);

/// Every apostrophe becomes a question mark, the engine's wildcard for one character: criteria quote texts in apostrophes.
std::string FixQuotes(const std::string& Text);

bool FileExists(const std::string& Path);
bool IsFormLoaded(const platform::Form* Form);

/// The company's record, with two fields repaired for all sessions when they are out of range.
void GetCompanyRecord();

/// The user's start-up row: whether there is one; then rsUserStartup stands on it.
bool SetUserStartup();

/// The dialog of the form's CommonDialog1, its pages and copies for the form's Report1, both found by these names. Ends quietly on any
/// error: a form that has no CommonDialog1 shows no dialog.
void PrinterSetup(platform::Form& Form);

/// One log record and the standard box for the pending error. Neither ends the program nor closes anything.
void ProgramError(const std::string& Module, bool Terminate);

}  // namespace orcussch
