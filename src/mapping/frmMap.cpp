#include "mapping/frmMap.h"

#include "maintenance/frmCustMain.h"
#include "platform/values/convert.h"
#include "records/fields.h"
#include "session/ModCustSch.h"
#include "session/failures.h"

// The screen: its life, the candidates' scroll bar, storing a position, choosing a customer by his pin.
namespace orcussch {

namespace screens {
platform::ScreenRef<orcussch::frmMap> frmMap{App};
}  // namespace screens

namespace {

constexpr const char* kTitle = "Customer Mapping";
constexpr int kNameLength = 32;

platform::DataControl& Customers() { return screens::frmCustMain.peek()->data[tab::Customers]; }

}  // namespace

frmMap::frmMap(platform::Application& application)
    : Screen(application, "frmMap", "Plot Customer(s) On Map"),
      Frame1(*this, "Frame1", ""),
      Pwstreet1(*this, "Pwstreet1"),
      lstMap(*this, "lstMap"),
      Scroll1(*this, "Scroll1"),
      lblMatches(*this, "lblMatches", "0 Address Matches Found"),
      cmdUpdate(*this, "cmdUpdate", "&Update Customer"),
      cmdClose(*this, "cmdClose", "&Close"),
      Label1(*this, "Label1",
             "Click the right mouse button for map menu. Click and hold the left mouse button, then draw a rectangle for zoom. Map will "
             "contain road detail only for areas installed with software.") {
  LeavesByEscape(true);
  Pwstreet1.Container(Frame1);
  Scroll1.Visible(false);
  lblMatches.Visible(false);
  cmdUpdate.Enabled(false);
  Scroll1.Change = [this] { Scroll1_Change(); };
  cmdUpdate.Click = [this] { cmdUpdate_Click(); };
  cmdClose.Click = [this] { App().Unload(*this); };
  Pwstreet1.PinClick = [this](const std::string& key) { Pwstreet1_PinClick(key); };
}

void frmMap::Tell(const std::string& text, const std::string& title) const {
  App().MsgBox(text, platform::box::Information + platform::box::OkOnly, title);
}

void frmMap::Form_Load() {
  Trap("frmMap.Form_Load (AP)", [this] {
    const platform::RecordsetRef rows = Customers().Recordset()->Clone();
    if (!rows->HasRows()) {
      rows->Close();
      NoCustomers = true;
      return Tell("No Customers have been selected!", kTitle);
    }
    NoCustomers = false;
    MapMatches.assign(1, {});
    if (screens::frmCustMain.peek()->Toolbar1.Tag() == "One")
      PlotOne(rows);
    else
      PlotAll(rows);
    rows->Close();
  });
}

void frmMap::Form_Activate() {
  if (NoCustomers) App().Unload(*this);
}

void frmMap::Form_Unload() {
  App().DoEvents();
  Ignore()([this] { Pwstreet1.Action(platform::MapControl::RemovePins); });
  App().DoEvents();
  screens::frmMap.release();
}

void frmMap::GetCustomerName(const platform::RecordsetRef& rows) {
  Trap("frmMap.GetCustomername", [&] {
    std::string First = platform::Trim(TextOf(rows, "FirstName"));
    if (!First.empty()) First += " ";
    const std::string Last = platform::Trim(TextOf(rows, "LastName"));
    const bool fits = platform::Len(First + Last) <= kNameLength;
    CustomerName = fits ? First + Last : platform::Left(First, 1) + " " + Last;
    if (CustomerName.empty()) CustomerName = "Killroy";
  });
}

void frmMap::Scroll1_Change() {
  // The log is searched by this name.
  Trap("frmMapCode.Scroll1.Change", [this] {
    Pwstreet1.Action(platform::MapControl::RemovePins);
    const MapMatch& match = MapMatches.at(static_cast<std::size_t>(Scroll1.Value()));
    GoTo(match.latitude, match.longitude);
    Pin(platform::CStr(platform::CDbl(Customers().Recordset()->Field("AcctNum"))), CustomerName);
    Pwstreet1.MapWidth = 26400;
    Pwstreet1.Action(platform::MapControl::Draw);
  });
}

void frmMap::cmdUpdate_Click() {
  Trap("frmMap.cmdUpdate_Click", [this] {
    cmdUpdate.Enabled(false);
    App().MousePointer(platform::pointer::Hourglass);
    App().DoEvents();
    if (Loaded()) StorePosition();
  });
}

void frmMap::StorePosition() {
  const platform::RecordsetRef rows = rsCustomers->Clone();
  rows->SetIndex("ByAcct");
  const platform::Value AcctNum[] = {Customers().Recordset()->Field("AcctNum")};
  rows->Seek("=", AcctNum);
  if (rows->NoMatch()) {
    cmdUpdate.Enabled(true);
    App().MousePointer(platform::pointer::Hourglass);  // it stays, as the one sign that nothing was stored
    return App().DoEvents();
  }
  const MapMatch& match = MapMatches.at(static_cast<std::size_t>(Scroll1.Value()));
  rows->Edit();
  rows->SetField("Latitude", match.latitude);
  rows->SetField("Longitude", match.longitude);
  rows->Update();
  rows->Close();
  Tell("Customer's Latitude and Longitude have been updated.", "Update Customer's Map Location");
  if (!Loaded()) return;
  cmdUpdate.Enabled(true);
  App().MousePointer(platform::pointer::Default);
  App().DoEvents();
}

void frmMap::Pwstreet1_PinClick(const std::string& key) {
  if (gNonSelection) return;
  const platform::RecordsetRef rows = Customers().Recordset();
  rows->FindFirst("[AcctNum]=" + key);
  if (rows->NoMatch()) return;
  GetCustomerName(rows);
  const int answer =
      App().MsgBox("Select Customer " + CustomerName + "?", platform::box::YesNo + platform::box::Question, "Select Customer");
  if (answer != platform::box::Yes || !Loaded()) return;
  gSelAcctNum = platform::CLng(platform::Val(key));
  screens::frmCustMain.peek()->Tag("Unload");
  App().Unload(*this);
}

}  // namespace orcussch
