#pragma once

#include <memory>
#include <string>

#include "library/host_accounts.h"
#include "library/places.h"
#include "platform/host/application.h"

namespace library {

/// How a real host's application is put together. Files and folders are the host's, absolute.
struct DefaultApplicationOptions {
  PlaceOptions places;
  std::string settingsFolder;  ///< window sizes, column layouts; "" keeps nothing
  std::string title;           ///< for the log
  std::string errorLog;
  std::string supportLog;  ///< "" keeps none
  bool makeTemporaryFile = false;
  AccountsCall accounts;  ///< the host's own look-up; empty: the library's
};

/// The look-up of accounts that the options ask for.
std::unique_ptr<platform::AccountsLookup> MakeAccounts(const DefaultApplicationOptions& options);

/// The default wiring: SQLite engine, paths, log files, windows. Raises platform::Error when there is no display that can be
/// opened or the caller is not on the main thread, OptionError for places.
std::unique_ptr<platform::Application> MakeDefaultApplication(const DefaultApplicationOptions& options);

}  // namespace library
