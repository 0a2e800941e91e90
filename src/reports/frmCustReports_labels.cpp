#include <algorithm>
#include <array>
#include <utility>

#include "maintenance/frmCustMain.h"
#include "platform/values/convert.h"
#include "reports/frmCustReports.h"
#include "session/ModCustSch.h"
#include "session/opened.h"

// The labels: one row a customer in the temporary file, which the label reports print.
namespace orcussch {

using platform::LTrim;
using platform::RecordsetRef;
using platform::Trim;
using platform::Value;

namespace {

/// The fields of a customer that labels are made of, by their places in the rows: asked for once, read for each customer. A statement
/// without one of them is refused.
struct LabelSource {
  explicit LabelSource(const RecordsetRef& Customer)
      : rows(Customer),
        AcctNum(Customer->FieldIndex("AcctNum")),
        Name{Customer->FieldIndex("Title"), Customer->FieldIndex("FirstName"), Customer->FieldIndex("LastName")},
        Lines{Customer->FieldIndex("Addr1"), Customer->FieldIndex("Addr2")},
        Town{Customer->FieldIndex("City"), Customer->FieldIndex("State"), Customer->FieldIndex("Zip")} {}
  std::string Text(int Field) const {
    const Value value = rows->Field(Field);
    if (value.IsText()) return value.As<std::string>();
    return value.IsNull() ? "" : platform::CStr(value);
  }
  /// City, state and ZIP as they are stored.
  std::array<std::string, 3> TownTexts() const { return {Text(Town[0]), Text(Town[1]), Text(Town[2])}; }

  RecordsetRef rows;
  int AcctNum;
  int Name[3];
  int Lines[2];
  int Town[3];
};

/// Each part with the blank that sets the next one off.
std::string LabelName(const LabelSource& Customer) {
  std::string Name;
  for (const int Field : {Customer.Name[0], Customer.Name[1]})
    if (const std::string Part = Trim(Customer.Text(Field)); !Part.empty()) Name += Part + " ";
  return Name + Trim(Customer.Text(Customer.Name[2]));
}

/// The address without empty lines between; the line of the city is always there, if only with its comma.
class AddressLines {
 public:
  AddressLines(const LabelSource& Customer, const std::array<std::string, 3>& Town) {
    for (const int Field : Customer.Lines)
      if (std::string Line = LTrim(Customer.Text(Field)); !Line.empty()) mLines[mCount++] = std::move(Line);
    mLines[mCount++] = LTrim(Town[0]) + ", " + LTrim(Town[1]) + " " + LTrim(Town[2]);
  }
  std::string Take(std::size_t Line) { return std::move(mLines[Line]); }

 private:
  std::string mLines[3];
  std::size_t mCount = 0;
};

/// The table that the labels go into, its fields as above.
class LabelTable {
 public:
  explicit LabelTable(const RecordsetRef& Labels) : mRows(Labels) {
    int i = 0;
    for (const char* Field : {"AcctNum", "Name", "Address1", "Address2", "Address3", "City", "State", "Zip"})
      mFields[i++] = Labels->FieldIndex(Field);
  }

  void Add(const LabelSource& Customer) {
    const std::array<std::string, 3> Town = Customer.TownTexts();
    AddressLines Address(Customer, Town);
    mRows->AddNew();
    int i = 0;
    const auto Set = [&](const Value& value) { mRows->SetField(mFields[i++], value); };
    Set(Customer.rows->Field(Customer.AcctNum));
    Set(LabelName(Customer));
    for (const std::size_t Line : {0U, 1U, 2U}) Set(Address.Take(Line));
    // For the order alone.
    for (const std::string& Part : Town) Set(Trim(Part));
    mRows->Update();
  }

 private:
  RecordsetRef mRows;
  int mFields[8] = {};
};

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
    if (StopAsked()) return;
    const LabelSource Customer(Customers);
    LabelTable Table(Labels);
    for (int Done = 1; !StopAsked() && !Customers->Bof(); ++Done) {
      Table.Add(Customer);
      ProgressBar1.Value(Percent(Done, Total));
      App().DoEvents();
      if (!StopAsked()) Customers->MovePrevious();
    }
  });
}

}  // namespace orcussch
