#include "maintenance/tabs/customer_taxes.h"

#include "maintenance/display_options.h"
#include "maintenance/frmCustMain.h"
#include "platform/values/convert.h"
#include "records/columns.h"
#include "records/lists.h"
#include "session/ModCustSch.h"

namespace orcussch {

using namespace column;
using platform::Value;

namespace {

constexpr const char* kPlaces[4] = {"TaxBasisA", "TaxBasisB", "TaxBasisC", "TaxBasisD"};

/// Runs one statement of a load; a failure is reported there and the list shows what got in. False after one.
bool Run(const platform::DatabaseRef& Db, const std::string& Statement) {
  bool errorFlag = false;
  ExecuteSQLStmt(Db, Statement, false, errorFlag);
  return !errorFlag;
}

}  // namespace

CustomerTaxes::CustomerTaxes(frmCustMain& screen)
    : s(screen), fraTaxBasis(s, "fraTaxBasis", "Applicable Customer Taxes:"), optTaxDisp(s, "optTaxDisp"), grdTaxBasis(s, "grdTaxBasis") {
  CaptionOptions(optTaxDisp, kDisplayFilters);
  optTaxDisp.Each([this](platform::OptionButton& option, int) {
    option.Container(fraTaxBasis);
    option.Click = [this] { SQL(); };  // the list keeps its caption
  });
  grdTaxBasis.Container(fraTaxBasis);
  grdTaxBasis.Tag("Assign, Description");
  grdTaxBasis.BindTo(s.DataTaxBasis);
  grdTaxBasis.MarksRows(true);
  grdTaxBasis.DefineColumns({
      Check("Assigned", "Assign"),
      Closed(Plain("Description", "Description")),
      Closed(Plain("TypeDescription", "TypeDescription")),
      Closed(Plain("Tax Entity", "EntityDescription")),
      Closed(Plain("Tax ID", "TaxID")),
  });
  grdTaxBasis.HeadClick = [this](int ColIndex) { HeadClick(ColIndex); };
  grdTaxBasis.AfterColUpdate = [this](int) { AfterColUpdate(); };
  grdTaxBasis.SelChange = [this](bool&) { s.TestGridSelection(grdTaxBasis); };
}

void CustomerTaxes::Load(bool Customer) {
  mLoaded = false;
  Trap("frmCustMain.LoadAvailableKeyWords", [&] {
    const std::string instance = std::to_string(s.mInstance);
    s.App().DoEvents();
    bool loaded = Run(dbTemp, "Delete * From CU_AssignTaxes Where (Instance = " + instance + ");");
    // The right joins keep a tax that has no type or entity.
    loaded =
        Run(dbCustomer, "INSERT INTO CU_AssignTaxes ( Instance, TaxID, Assign, Description, TypeDescription, EntityDescription )" +
                            InFile(gTempPath) + " SELECT " + instance +
                            " As Instance, TaxGrid.TaxID, False AS Assign, TaxGrid.Description, TaxTypes.TypeDescription, "
                            "TaxEntities.EntityDescription"
                            " FROM TaxTypes RIGHT JOIN (TaxEntities RIGHT JOIN TaxGrid ON TaxEntities.TaxEntity = TaxGrid.TaxEntity) ON "
                            "TaxTypes.TaxType = TaxGrid.TaxType"
                            ";") &&
        loaded;
    loaded = SQL() && loaded;
    if (Customer && s.data[tab::Customers].OnRecord()) TickCustomers();
    mLoaded = loaded;
    if (HasRecords(s.DataTaxBasis)) s.DataTaxBasis.Recordset()->MoveFirst();
    s.App().DoEvents();
  });
}

void CustomerTaxes::TickCustomers() {
  const platform::RecordsetRef taxes = s.DataTaxBasis.Recordset();
  for (const char* field : kPlaces) {
    const Value tax = s.data[tab::Customers].Recordset()->Field(field);
    if (tax.IsNull() || platform::CLng(tax) <= 0) continue;
    taxes->FindFirst("[TaxID]=" + platform::CStr(tax));
    if (taxes->NoMatch()) continue;
    taxes->Edit();
    taxes->SetField("Assign", true);
    taxes->Update();
  }
}

bool CustomerTaxes::SQL() {
  return Trap("frmCustMain.SQLTaxBasis", [this] {
    s.App().DoEvents();
    const int leftCol = HasRecords(s.DataTaxBasis) ? grdTaxBasis.LeftCol(0) : 0;
    std::string statement =
        "SELECT * FROM CU_AssignTaxes WHERE (Instance = " + std::to_string(s.mInstance) + ")" + AssignFilter(optTaxDisp);
    statement += " ORDER BY " + grdTaxBasis.Tag();
    s.DataTaxBasis.RecordSource(statement);
    s.DataTaxBasis.Refresh();
    s.DataTaxBasis.UpdateControls();
    const bool records = HasRecords(s.DataTaxBasis);
    s.Toolbar1.Button("tb_SelectAll").Enabled(records);
    s.miSelectAll.Enabled(records);
    grdTaxBasis.LeftCol(0, leftCol);
    s.App().DoEvents();
  });
}

void CustomerTaxes::HeadClick(int ColIndex) {
  grdTaxBasis.Tag(grdTaxBasis.Column(ColIndex).dataField);
  if (HasRecords(s.DataTaxBasis)) SQL();
}

void CustomerTaxes::AfterColUpdate() {
  Trap("frmCustMain.gridTaxBasis_AfterColEdit", [this] {
    s.DataTaxBasis.Recordset()->Edit();
    s.DataTaxBasis.Recordset()->Update();
  });
}

std::optional<std::vector<Value>> CustomerTaxes::Ticked() const {
  std::vector<Value> taxes;
  const bool known = mLoaded && Ignore()([&] {
                       const Opened assigned(dbTemp->OpenRecordset("Select TaxID From CU_AssignTaxes Where (Assign=True) And (Instance = " +
                                                                   std::to_string(s.mInstance) + ") Order By TaxID;"));
                       for (; !assigned->Eof(); assigned->MoveNext()) taxes.push_back(assigned->Field("TaxID"));
                     });
  if (!known) return {};
  return taxes;
}

void CustomerTaxes::Tick(const std::vector<Value>& taxes) {
  if (!mLoaded) return;
  const std::string mine = " Where (Instance = " + std::to_string(s.mInstance) + ")";
  dbTemp->Execute("Update CU_AssignTaxes Set Assign = False" + mine + ";");
  for (const Value& tax : taxes)
    dbTemp->Execute("Update CU_AssignTaxes Set Assign = True" + mine + " And (TaxID = " + platform::CStr(tax) + ");");
  SQL();
}

platform::RecordsetRef CustomerTaxes::OpenTicked() const {
  return dbTemp->OpenRecordset("Select * From CU_AssignTaxes Where (Assign=True) And (Instance = " + std::to_string(s.mInstance) +
                               ") Order By TaxID;");
}

/// The first four assigned taxes are kept, without a word about others. False when they could not be read.
bool CustomerTaxes::ReadPlaces(ResumeNext& on, const Opened& Assigned, std::int16_t TaxCount, Places& taxes) const {
  if (Assigned.IsNothing()) return false;
  bool more = false;
  if (!on([&] {
        more = Assigned->RecordCount() != 0;
        if (more) Assigned->MoveFirst();
      }))
    return false;
  while (more) {
    // Short like the number of duplicates: after the greatest one the addition is reported and no place is left either.
    on([&] { TaxCount = platform::CInt(std::int32_t{TaxCount} + 1); });
    if (TaxCount > 4) break;
    if (!on([&] {
          taxes[static_cast<std::size_t>(TaxCount - 1)] = Assigned->Field("TaxID");
          Assigned->MoveNext();
          more = !Assigned->Eof();
        }))
      return false;
  }
  return true;
}

void CustomerTaxes::Write(RowWrite& row, const Opened& Assigned, std::int16_t TaxCount, bool Adding) const {
  Places taxes;
  taxes.fill(std::int32_t{0});
  const bool known = ReadPlaces(row.Reports(), Assigned, TaxCount, taxes) && mLoaded;
  if (!known && !Adding) return;
  for (std::size_t i = 0; i < taxes.size(); ++i) row([&] { rsCustomers->SetField(kPlaces[i], taxes[i]); });
}

}  // namespace orcussch
