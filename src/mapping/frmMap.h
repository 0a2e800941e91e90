#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "mapping/candidates.h"
#include "platform/controls/buttons.h"
#include "platform/controls/label.h"
#include "platform/controls/lists.h"
#include "platform/controls/map/map_control.h"
#include "platform/data/data.h"
#include "platform/host/screen.h"
#include "platform/host/screen_ref.h"

namespace orcussch {

/// Plots the current customer of the main screen, or all of its list, on the street map. Where an address may mean several places
/// the user steps through them, nearest first, and stores the right one with the customer. A click on a pin chooses that customer
/// for the host.
class frmMap final : public platform::Screen {
 public:
  explicit frmMap(platform::Application& application);
  void Form_Load() override;
  void Form_Activate() override;
  void Form_Unload() override;
  /// What a pin is called: CustomerName.
  void GetCustomerName(const platform::RecordsetRef& rows);

  platform::Frame Frame1;
  platform::MapControl Pwstreet1;
  platform::ListBox lstMap;
  platform::ScrollBar Scroll1;
  platform::Label lblMatches;
  platform::CommandButton cmdUpdate;
  platform::CommandButton cmdClose;
  platform::Label Label1;

 private:
  /// A customer with a pin.
  struct MapCustomer {
    std::int32_t AcctNum = 0;
    std::int32_t Latitude = 0;
    std::int32_t Longitude = 0;
    std::string Name;  ///< of 32 characters, cut or filled with blanks
  };

  // plot.cpp
  void PlotOne(const platform::RecordsetRef& rows);
  void PlotAll(const platform::RecordsetRef& rows);
  void CollectCustomers(const platform::RecordsetRef& rows);
  void ShowCustomers();
  /// Looks an address up. False when a failure, which was reported, ended it, or the screen has gone.
  bool Geocode(const std::string& address, const platform::RecordsetRef& rows);
  void TakeReference(const platform::RecordsetRef& rows);
  void LookUp(const std::string& address);
  void MeasureCandidates(int count);
  void GoTo(std::int32_t latitude, std::int32_t longitude);
  void Pin(const std::string& key, const std::string& text);

  void Scroll1_Change();
  void cmdUpdate_Click();
  void StorePosition();
  void Pwstreet1_PinClick(const std::string& key);
  void Tell(const std::string& text, const std::string& title) const;

  std::vector<MapMatch> MapMatches;
  std::vector<MapCustomer> MapCustomers;
  std::string CustomerName;
  bool NoCustomers = false;
};

/// Shows the map for one customer ("One") or all of the main screen's list ("All"), then the list with what was stored meanwhile;
/// or, where a customer was chosen on the map, closes the main screen.
void MapCustomer(const std::string& Scope);

namespace screens {
extern platform::ScreenRef<orcussch::frmMap> frmMap;
}  // namespace screens

}  // namespace orcussch
