#include "platform/values/convert.h"
#include "session/ModCustSch.h"
#include "session/failures.h"
#include "session/opened.h"

namespace orcussch {

using platform::CLng;
using platform::Value;

namespace {

/// A text field of the company's row in the fixed length that the record holds; Null gives blanks.
struct CompanyText {
  const char* field;
  std::string CompanyRecord::*member;
  int length;
};

constexpr CompanyText kTexts[] = {
    {"CompName", &CompanyRecord::CompName, 40}, {"Addr1", &CompanyRecord::Addr1, 40}, {"Addr2", &CompanyRecord::Addr2, 40},
    {"City", &CompanyRecord::City, 25},         {"State", &CompanyRecord::State, 2},  {"Zip", &CompanyRecord::Zip, 10},
    {"Country", &CompanyRecord::Country, 30},   {"Phone", &CompanyRecord::Phone, 10}, {"Fax", &CompanyRecord::Fax, 10},
    {"Owner", &CompanyRecord::Owner, 40},       {"FIN", &CompanyRecord::FIN, 11},
};

constexpr int kHighestEntity = 2;
constexpr int kMonths = 12;

void BlankCompany() {
  gCompany = CompanyRecord{};
  gCompany.BeginningMonth = 1;
}

/// Takes both figures; one that is out of range is mended in the table too, so that all later sessions find it sound.
void RepairCompany(const platform::RecordsetRef& rsCompany) {
  bool repair = false;

  const Value entity = rsCompany->Field("AccountingEntity");
  if (entity.IsNull() || CLng(entity) < 0 || CLng(entity) > kHighestEntity) {
    gCompany.AccountingEntity = 0;
    repair = true;
  } else {
    gCompany.AccountingEntity = static_cast<std::uint8_t>(CLng(entity));
  }

  const Value month = rsCompany->Field("BeginningMonth");
  if (!month.IsNull() && (CLng(month) == 0 || CLng(month) > kMonths)) {
    gCompany.BeginningMonth = 1;
    repair = true;
  } else {
    gCompany.BeginningMonth = platform::CInt(month);
  }

  if (!repair) return;
  rsCompany->Edit();
  rsCompany->SetField("BeginningMonth", gCompany.BeginningMonth);
  rsCompany->SetField("AccountingEntity", gCompany.AccountingEntity);
  rsCompany->Update();
  rsCompany->SetBookmark(rsCompany->LastModified());
}

void ReadCompanyTexts(const platform::RecordsetRef& rsCompany) {
  for (const CompanyText& text : kTexts)
    gCompany.*text.member = platform::FixedText(platform::CStr(platform::Concat("", rsCompany->Field(text.field))), text.length);
}

void ReadCompanyRow() {
  const Opened rsCompany(dbDat->OpenRecordset("Company", platform::RecordsetType::Table));
  App().DoEvents();
  rsCompany->SetIndex("CompID");
  rsCompany->Seek("=", {gCompanyID});
  if (rsCompany->NoMatch()) {
    BlankCompany();
    return;
  }
  RepairCompany(rsCompany);
  ReadCompanyTexts(rsCompany);
}

}  // namespace

void GetCompanyRecord() {
  Trap(
      "modCustSch.GetCompanyRecord",
      [] {
        ReadCompanyRow();
        App().DoEvents();
      },
      true);
}

bool SetUserStartup() {
  bool found = false;
  Trap("modCustSch.SetUserStartup", [&] {
    gAddPhone = true;
    if (rsUserStartup->RecordCount() == 0) return;
    rsUserStartup->FindFirst("[UserNum]=" + std::to_string(gUserID));
    if (rsUserStartup->NoMatch()) return;
    found = true;
    const Value addPhone = rsUserStartup->Field("AddPhone");
    if (!addPhone.IsNull() && !platform::CBool(addPhone)) gAddPhone = false;
  });
  return found;
}

}  // namespace orcussch
