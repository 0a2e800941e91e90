#pragma once

#include <string_view>

#include "platform/host/application.h"
#include "platform/values/value.h"

namespace orcussch {

/// What a host of the suite uses: create it, set UserID, then CompanyID (which opens the session), optionally Customer,
/// BillingStatus, NonSelection and Company, call ShowUser, read Customer and the Customer... texts, release it.
///
/// All properties are variants; lets convert, gets give the type shown. A value that can't be converted is shown to the user
/// in one box and changes nothing. The values belong to the library, not to the object: there is one session per process.
class CustSearch {
 public:
  /// The first creation in the process fixes the folders. The application must outlive the object.
  explicit CustSearch(platform::Application& application);
  /// Unloads every screen and closes the session's workspace.
  ~CustSearch();
  CustSearch(const CustSearch&) = delete;
  CustSearch& operator=(const CustSearch&) = delete;

  /// A property by its name: UserID, CompanyID, Company, NonSelection, BillingStatus, Customer, CustomerLastName,
  /// CustomerFirstName, CustomerTitle, CustomerAddr1, CustomerAddr2, CustomerCity, CustomerState, CustomerZip. Unknown name:
  /// Error 438 to the caller.
  platform::Value Get(std::string_view property) const;
  void Let(std::string_view property, const platform::Value& value);
  static bool IsProperty(std::string_view property);
  /// Whether the value, a text too, converts to what that property holds. Unknown name: error 438.
  static bool Fits(std::string_view property, const platform::Value& value);

  platform::Value UserID() const { return Get("UserID"); }        ///< Long
  platform::Value CompanyID() const { return Get("CompanyID"); }  ///< always Empty: the number goes in only
  platform::Value Company() const { return Get("Company"); }      ///< 40 characters, blanks included
  platform::Value NonSelection() const { return Get("NonSelection"); }
  platform::Value BillingStatus() const { return Get("BillingStatus"); }
  platform::Value Customer() const { return Get("Customer"); }  ///< the account that the user chose; 0 for none
  void UserID(const platform::Value& value) { Let("UserID", value); }
  void CompanyID(const platform::Value& value) { Let("CompanyID", value); }
  void Company(const platform::Value& value) { Let("Company", value); }
  void NonSelection(const platform::Value& value) { Let("NonSelection", value); }
  void BillingStatus(const platform::Value& value) { Let("BillingStatus", value); }
  void Customer(const platform::Value& value) { Let("Customer", value); }  ///< the account on which the list opens

  /// Shows the screens; returns when the user has closed them. A second call while one runs does nothing.
  void ShowUser();

  /// Whether a ShowUser is running.
  static bool Running() noexcept;
};

}  // namespace orcussch
