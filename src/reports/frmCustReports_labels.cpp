#include <algorithm>

#include "maintenance/frmCustMain.h"
#include "platform/values/convert.h"
#include "records/fields.h"
#include "reports/frmCustReports.h"
#include "session/ModCustSch.h"
#include "session/opened.h"

// The labels: one row a customer in the temporary file, which the label reports print.
namespace orcussch {

using platform::LTrim;
using platform::RecordsetRef;
using platform::Trim;

namespace {

/// One part of a name, with the blank that sets the next one off.
std::string NamePart(const RecordsetRef& Customer, const char* Field) {
  const std::string Part = Trim(TextOf(Customer, Field));
  return Part.empty() ? "" : Part + " ";
}

std::string LabelName(const RecordsetRef& Customer) {
  return NamePart(Customer, "Title") + NamePart(Customer, "FirstName") + Trim(TextOf(Customer, "LastName"));
}

/// The address without empty lines between; the line of the city is always there, if only with its comma.
class AddressLines {
 public:
  explicit AddressLines(const RecordsetRef& Customer) {
    for (const char* Field : {"Addr1", "Addr2"})
      if (const std::string Line = LTrim(TextOf(Customer, Field)); !Line.empty()) mLines[mCount++] = Line;
    const auto Part = [&](const char* Field) { return LTrim(TextOf(Customer, Field)); };
    mLines[mCount++] = Part("City") + ", " + Part("State") + " " + Part("Zip");
  }
  const std::string& operator[](std::size_t Line) const { return mLines[Line]; }

 private:
  std::string mLines[3];
  std::size_t mCount = 0;
};

void AddLabel(const RecordsetRef& Labels, const RecordsetRef& Customer) {
  const std::string Name = LabelName(Customer);
  const AddressLines Address(Customer);
  Labels->AddNew();
  Labels->SetField("AcctNum", Customer->Field("AcctNum"));
  Labels->SetField("Name", Name);
  Labels->SetField("Address1", Address[0]);
  Labels->SetField("Address2", Address[1]);
  Labels->SetField("Address3", Address[2]);
  // For the order alone.
  for (const char* Field : {"City", "State", "Zip"}) Labels->SetField(Field, Trim(TextOf(Customer, Field)));
  Labels->Update();
}

int Percent(int Done, int Total) {
  return std::min(100, static_cast<int>(platform::RoundHalfEven(static_cast<double>(Done) / static_cast<double>(Total) * 100)));
}

/// A button that can be pressed for as long as this lives.
class Offered {
 public:
  explicit Offered(platform::CommandButton& Button) : mButton(Button) { mButton.Visible(true); }
  ~Offered() { mButton.Visible(false); }
  Offered(const Offered&) = delete;
  Offered& operator=(const Offered&) = delete;

 private:
  platform::CommandButton& mButton;
};

}  // namespace

/// The statement for one customer asks for a name that the table has not: the engine refuses it, and that run prints no label.
RecordsetRef frmCustReports::CustomersForLabels() const {
  if (optCustomer[0].Value()) return screens::frmCustMain->data[tab::Customers].Recordset()->Clone();
  if (!optCustomer[2].Value()) return rsCustomers->Clone();
  const std::string& AcctNum = lblAcctNum.Caption();
  return dbCustomer->OpenRecordset("Select DISTINCTROW AcctNum, Name, Addr1, Addr2, City, State, Zip From Customers Where (AcctNum=" +
                                   (AcctNum.empty() ? "0" : AcctNum) + ");");
}

void frmCustReports::LoadLabels(bool& Failed) {
  mStopped = false;
  Trap("frmCustReports_LoadLabels", [&] {
    ClearORVTempTable("CustLabelTempRpt", Failed);
    if (!Loaded()) return;
    App().DoEvents();
    if (!Loaded()) return;
    const Opened Customers(CustomersForLabels());
    if (!Customers->HasRows()) return;
    const Opened Labels(dbTemp->OpenRecordset("CustLabelTempRpt", platform::RecordsetType::Table));
    Customers->MoveLast();
    const int Total = Customers->RecordCount();
    const Offered Stop(cmdStop);
    App().DoEvents();
    for (int Done = 1; !StopAsked() && !Customers->Bof(); ++Done) {
      AddLabel(Labels, Customers);
      ProgressBar1.Value(Percent(Done, Total));
      App().DoEvents();
      if (!StopAsked()) Customers->MovePrevious();
    }
  });
}

}  // namespace orcussch
