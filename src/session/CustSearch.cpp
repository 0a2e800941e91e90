#include "session/CustSearch.h"

#include <string>

#include "platform/values/convert.h"
#include "platform/values/error.h"
#include "platform/values/text.h"
#include "session/ModCustSch.h"
#include "session/failures.h"
#include "session/modAppShutdown.h"
#include "session/opened.h"
#include "session/openers.h"

namespace orcussch {

using platform::CBool;
using platform::CLng;
using platform::CStr;
using platform::Value;

namespace {

constexpr int kRightsMaskLength = 80;
constexpr int kCompanyLength = 40;
bool running = false;

std::string AsText(const Value& value) { return value.IsEmpty() ? std::string() : CStr(value); }

void ReadRights() {
  const Opened rsRights(dbDat->OpenRecordset("Rights", platform::RecordsetType::Table));
  rsRights->SetIndex("Program");
  rsRights->Seek("=", {"CUSTSCH", gUserID});
  const std::string blanks(kRightsMaskLength, ' ');
  gRightsMask =
      rsRights->NoMatch() ? blanks : platform::Right(blanks + CStr(platform::Concat("", rsRights->Field("Mask"))), kRightsMaskLength);
}

/// A company that has no receivables row yet gets one at first use.
void ReadDefaultTerms() {
  rsAR->SetIndex("CompID");
  rsAR->Seek("=", {gCompanyID});
  if (rsAR->NoMatch()) {
    rsAR->AddNew();
    rsAR->SetField("CompID", gCompanyID);
    rsAR->Update();
    rsAR->SetBookmark(rsAR->LastModified());
    gDefaultTerms = 0;
  } else {
    gDefaultTerms = CLng(rsAR->Field("PayTerms"));
  }
}

/// Reports that are still to be seen belong to the company and the session in which they were run.
void ClosePreviews() {
  if (platform::ReportEngine* reports = App().Reports()) reports->CloseAll();
}

void LetCompanyID(const Value& value) {
  TrapWith([] { return "CustSearch.CompanyID[PropertyLet] " + gWorkspaceName; },
           [&] {
             const std::int32_t company = CLng(value);
             // A procedure that waits in one of its yields would go on in the other company's files.
             if (running) throw platform::error::InvalidCall();
             ReleaseFiles();
             ClosePreviews();
             gCompanyID = company;
             gTempPath = gTempDir + "orvTemp" + std::to_string(gUserID) + ".zdb";
             gIniPath = gTempDir + "orvwin.ini";
             OpenFiles();
             ReadRights();
             ReadDefaultTerms();
           });
}

void ClearAnswer() {
  gSelAcctNum = 0;
  gCustomerFirstName = gCustomerLastName = gCustomerTitle = "";
  gCustomerAddr1 = gCustomerAddr2 = gCustomerCity = gCustomerState = gCustomerZip = "";
}

/// By the user's start-up row, on which the recordset stands.
bool WantsQueriesFirst() {
  const Value startGrid = rsUserStartup->Field("StartGrid");
  return !startGrid.IsNull() && !CBool(startGrid);
}

/// What a property's value is kept as.
enum class Kind { Long, Boolean, Text };

struct Property {
  const char* name;
  Kind kind;
  Value (*get)();
  void (*let)(const Value&);
};

template <std::string& Text>
constexpr Property TextProperty(const char* name) {
  return {name, Kind::Text, [] { return Value(Text); }, [](const Value& value) { Text = AsText(value); }};
}

const Property kProperties[] = {
    {"UserID", Kind::Long, [] { return Value(gUserID); }, [](const Value& value) { gUserID = CLng(value); }},
    {"CompanyID", Kind::Long, [] { return Value(); }, LetCompanyID},
    {"Company", Kind::Text, [] { return Value(gCompany.CompName); },
     [](const Value& value) { gCompany.CompName = platform::FixedText(AsText(value), kCompanyLength); }},
    {"NonSelection", Kind::Boolean, [] { return Value(gNonSelection); }, [](const Value& value) { gNonSelection = CBool(value); }},
    TextProperty<gBillingStatus>("BillingStatus"),
    // What is written is where the list opens; what is read is what the user chose.
    {"Customer", Kind::Long, [] { return Value(gSelAcctNum); }, [](const Value& value) { gHostAcctNum = CLng(value); }},
    TextProperty<gCustomerLastName>("CustomerLastName"),
    TextProperty<gCustomerFirstName>("CustomerFirstName"),
    TextProperty<gCustomerTitle>("CustomerTitle"),
    TextProperty<gCustomerAddr1>("CustomerAddr1"),
    TextProperty<gCustomerAddr2>("CustomerAddr2"),
    TextProperty<gCustomerCity>("CustomerCity"),
    TextProperty<gCustomerState>("CustomerState"),
    TextProperty<gCustomerZip>("CustomerZip"),
};

const Property* FindProperty(std::string_view name) {
  for (const Property& property : kProperties)
    if (platform::EqualsNoCase(property.name, name)) return &property;
  return nullptr;
}

const Property& PropertyOrRaise(std::string_view name) {
  const Property* property = FindProperty(name);
  if (!property) throw platform::error::NoSuchProperty();
  return *property;
}

/// After a failure that left the frames of the screens: what is still loaded goes, and the next ShowUser begins with a fresh
/// screen.
void AbandonScreens() noexcept {
  try {
    SafeAppUnloadAllForms();
  } catch (...) {
    App().Log(platform::LogLevel::Warning, "a screen can't be unloaded");
  }
  try {
    gSessionOpeners.giveUpMain();
  } catch (...) {
    App().Log(platform::LogLevel::Warning, "the screen can't be given up");
  }
}

/// What no handler took ends at the border of the library: the host never sees an error of ours.
template <class Body>
void AtBorder(Body&& body) {
  try {
    body();
  } catch (const platform::Error& error) {
    App().Unhandled(error);
  }
}

}  // namespace

CustSearch::CustSearch(platform::Application& application) {
  AttachApplication(&application);
  Main();
}

namespace {

void Class_Terminate() {
  bool bSuccess = false;
  TrapWith(
      [&] {
        return std::string("CustSearch.Class_Terminate, bSuccess = ") + (bSuccess ? "True" : "False") + "\r" + "WSPACE = " + gWorkspaceName;
      },
      [&] {
        SafeAppUnloadAllForms();
        ClosePreviews();
        bSuccess = SafeAppShutdown(gWorkspaceName);
      });
}

}  // namespace

CustSearch::~CustSearch() {
  try {
    Class_Terminate();
  } catch (const std::exception& error) {
    // Not even the report could be shown: the host's end must not fail for that.
    App().Log(platform::LogLevel::Failure, "release failed:");
    App().Log(platform::LogLevel::Failure, error.what());
  } catch (...) {
    App().Log(platform::LogLevel::Failure, "release failed");
  }
}

bool CustSearch::IsProperty(std::string_view property) { return FindProperty(property) != nullptr; }

bool CustSearch::Fits(std::string_view property, const Value& value) {
  const Kind kind = PropertyOrRaise(property).kind;
  try {
    if (kind == Kind::Long) CLng(value);
    if (kind == Kind::Boolean) CBool(value);
    return true;
  } catch (const platform::Error&) {
    return false;
  }
}

Value CustSearch::Get(std::string_view property) const { return PropertyOrRaise(property).get(); }

void CustSearch::Let(std::string_view property, const Value& value) {
  const Property& target = PropertyOrRaise(property);
  AtBorder([&] { target.let(value); });
}

bool CustSearch::Running() noexcept { return running; }

void CustSearch::ShowUser() {
  if (running) return;
  struct Run {
    Run() noexcept { running = true; }
    ~Run() { running = false; }
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;
  };
  const Run run;
  AtBorder([] {
    ClearAnswer();
    const bool beginsWithQueries = SetUserStartup() && gSessionOpeners.showQueries && WantsQueriesFirst();
    try {
      if (beginsWithQueries) gSessionOpeners.showQueries();
      gSessionOpeners.showMain();
    } catch (...) {
      AbandonScreens();
      throw;
    }
  });
}

}  // namespace orcussch
