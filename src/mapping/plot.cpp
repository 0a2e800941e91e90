#include <algorithm>
#include <string>

#include "maintenance/frmCustMain.h"
#include "mapping/frmMap.h"
#include "platform/host/long_run.h"
#include "platform/values/convert.h"
#include "records/fields.h"
#include "session/failures.h"

// Looking addresses up and putting pins on the map.
namespace orcussch {

namespace {

using platform::MapControl;

constexpr std::int32_t kPinStyle = 5730;
constexpr std::int32_t kFiveMiles = 26400;   // in feet
constexpr std::int32_t kThreeMiles = 15840;  // in feet
constexpr std::int32_t kMatchesText = 32;    // bit of Result: the position is that of the text given
constexpr int kNameLength = 32;

std::string Trimmed(const platform::RecordsetRef& rows, const char* field) { return platform::Trim(TextOf(rows, field)); }

/// One customer's: a comma behind each part that is not empty, none at the end.
std::string AddressOf(const platform::RecordsetRef& rows) {
  std::string address;
  for (const char* field : {"Addr1", "City", "State"}) {
    const std::string part = Trimmed(rows, field);
    if (!part.empty()) address += part + ",";
  }
  address += Trimmed(rows, "Zip");
  if (!address.empty() && address.back() == ',') address.pop_back();
  return address;
}

/// In a run over all: a comma before each part but the first, which leaves one in front where the street is empty.
std::string AddressInList(const platform::RecordsetRef& rows) {
  std::string address = Trimmed(rows, "Addr1");
  for (const char* field : {"City", "State", "Zip"}) {
    const std::string part = Trimmed(rows, field);
    if (!part.empty()) address += "," + part;
  }
  return address;
}

/// For the user's eyes: a list that can't be counted now is as good as one that isn't.
std::int64_t CountOfRows() {
  std::int64_t count = 0;
  Ignore()([&] {
    platform::RowWindow* rows = screens::frmCustMain.peek()->data[tab::Customers].Window();
    if (rows != nullptr) count = rows->Count();
  });
  return count;
}

std::int32_t Middle(std::int32_t low, std::int32_t high) { return platform::CLng((static_cast<double>(high) - low) / 2 + low); }

}  // namespace

void frmMap::GoTo(std::int32_t latitude, std::int32_t longitude) {
  Pwstreet1.Latitude = latitude;
  Pwstreet1.Longitude = longitude;
}

void frmMap::Pin(const std::string& key, const std::string& text) {
  Pwstreet1.PinKey = key;
  Pwstreet1.Text = text;
  Pwstreet1.PinStyle = kPinStyle;
  Pwstreet1.PinPicture = App().Path() + App().System().Separator() + "pushblue.bmp";
  Pwstreet1.Action(MapControl::AddPin);
}

void frmMap::PlotOne(const platform::RecordsetRef& rows) {
  const platform::RecordsetRef current = screens::frmCustMain.peek()->data[tab::Customers].Recordset();
  const std::string AcctNum = platform::CStr(current->Field("AcctNum"));
  rows->FindFirst("[AcctNum]=" + AcctNum);
  if (rows->NoMatch()) return Tell("The current Customer account no. " + AcctNum + " can not be found!", "Customer Mapping");

  Pwstreet1.Action(MapControl::Prepare);
  const std::string address = AddressOf(rows);
  GetCustomerName(rows);
  const bool refused = !Geocode(address, rows);
  if (!Loaded()) return;
  if (lstMap.Items().size() >= 2 && !refused) {
    Scroll1.Max(static_cast<int>(MapMatches.size()) - 1);
    Scroll1.Visible(true);
    lblMatches.Caption(std::to_string(lstMap.Items().size()) + " Address Matches Found");
    lblMatches.Visible(true);
    cmdUpdate.Enabled(true);
  }
  Pin(AcctNum, CustomerName);
  Pwstreet1.MapWidth = kFiveMiles;
  Pwstreet1.Action(MapControl::Draw);
}

void frmMap::PlotAll(const platform::RecordsetRef& rows) {
  Pwstreet1.Action(MapControl::Prepare);
  CollectCustomers(rows);
  if (Loaded() && !MapCustomers.empty()) ShowCustomers();
}

void frmMap::CollectCustomers(const platform::RecordsetRef& rows) {
  MapCustomers.clear();
  const std::int64_t count = CountOfRows();
  platform::LongRun run(App().Watcher(), "Customer Mapping", count);
  rows->MoveFirst();
  while (!rows->Eof()) {
    const std::string address = AddressInList(rows);
    if (!address.empty()) {
      GetCustomerName(rows);
      Geocode(address, rows);
      if (!Loaded()) return;
      MapCustomers.push_back(
          {LongOf(rows, "AcctNum"), Pwstreet1.Latitude, Pwstreet1.Longitude, platform::FixedText(CustomerName, kNameLength)});
    }
    rows->MoveNext();
    App().DoEvents();
    // What was found until the user says stop is shown.
    if (!Loaded() || !run.Next()) return;
  }
}

void frmMap::ShowCustomers() {
  std::int32_t LowLatitude = 99999999, LowLongitude = 99999999, HighLatitude = 0, HighLongitude = -99999999;
  for (const MapCustomer& customer : MapCustomers) {
    GoTo(customer.Latitude, customer.Longitude);
    Pin(std::to_string(customer.AcctNum), customer.Name);
    LowLatitude = std::min(LowLatitude, customer.Latitude);
    LowLongitude = std::min(LowLongitude, customer.Longitude);
    HighLatitude = std::max(HighLatitude, customer.Latitude);
    HighLongitude = std::max(HighLongitude, customer.Longitude);
  }
  GoTo(LowLatitude, LowLongitude);
  Pwstreet1.Action(MapControl::SetOrigin);
  GoTo(HighLatitude, HighLongitude);
  Pwstreet1.Action(MapControl::Measure);
  const std::int32_t Radius = Pwstreet1.Result != 0 ? Pwstreet1.Result : kThreeMiles;
  GoTo(Middle(LowLatitude, HighLatitude), Middle(LowLongitude, HighLongitude));
  Pwstreet1.MapWidth = Radius * 2;
  Pwstreet1.Action(MapControl::Draw);
}

void frmMap::LookUp(const std::string& address) {
  Pwstreet1.Address = address;
  Pwstreet1.Action(MapControl::Geocode);
}

bool frmMap::Geocode(const std::string& address, const platform::RecordsetRef& rows) {
  return Trap("frmMap.Form_Load (AP)", [&] {
    App().DoEvents();
    if (!Loaded()) return;
    lstMap.Clear();
    App().DoEvents();
    if (!Loaded()) return;
    Pwstreet1.ListHandle = &lstMap;
    LookUp(address);
    App().DoEvents();
    if (!Loaded()) return;
    const int count = static_cast<int>(lstMap.Items().size());
    if (count == 0) return;  // the position of before stands
    TakeReference(rows);
    MeasureCandidates(count);
    SortByDistance(MapMatches);
    GoTo(MapMatches.front().latitude, MapMatches.front().longitude);
  });
}

/// What the candidates are measured from: the position stored with the customer, else that of his ZIP, else that of his town,
/// which is taken as it comes.
void frmMap::TakeReference(const platform::RecordsetRef& rows) {
  const std::int32_t Latitude = LongOf(rows, "Latitude"), Longitude = LongOf(rows, "Longitude");
  if (Latitude != 0 && Longitude != 0) return GoTo(Latitude, Longitude);
  const std::string Zip = Trimmed(rows, "Zip");
  if (!Zip.empty()) {
    LookUp(Zip);
    if ((Pwstreet1.Result & kMatchesText) != 0) return;
  }
  LookUp(Trimmed(rows, "City") + ", " + Trimmed(rows, "State"));
}

void frmMap::MeasureCandidates(int count) {
  const std::int32_t Latitude = Pwstreet1.Latitude, Longitude = Pwstreet1.Longitude;
  MapMatches.assign(static_cast<std::size_t>(count), {});
  for (int i = 0; i < count; ++i) {
    MapMatch& match = MapMatches[static_cast<std::size_t>(i)];
    match = PositionIn(lstMap.Items()[static_cast<std::size_t>(i)]);
    GoTo(Latitude, Longitude);
    Pwstreet1.Action(MapControl::SetOrigin);
    GoTo(match.latitude, match.longitude);
    Pwstreet1.Action(MapControl::Measure);
    match.distance = Pwstreet1.Result;
  }
}

}  // namespace orcussch
