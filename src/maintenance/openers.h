#pragma once

namespace platform {
class Form;
}

namespace orcussch {

class frmCustMain;

/// How the main screen shows the screens behind its commands. They stand above it and write its controls; it knows of them only
/// these calls. nullptr: a program without that screen, whose commands do nothing.
struct MainOpeners {
  using Opener = void (*)(frmCustMain& owner);

  Opener print = nullptr;
  Opener preview = nullptr;
  Opener queries = nullptr;
  platform::Form* (*queryScreen)() = nullptr;  ///< the query screen, which lives hidden; nullptr while there is none
  Opener reports = nullptr;
  Opener statistics = nullptr;
  Opener mapCustomer = nullptr;
  Opener mapAll = nullptr;
  Opener relationships = nullptr;
  Opener taxSetup = nullptr;
  Opener creditCardSetup = nullptr;
  Opener phoneSetup = nullptr;
  Opener mapCodes = nullptr;  ///< the tag of cmdMapCode says whether to choose one
  Opener userOptions = nullptr;
};

/// Filled from above (ConnectScreens).
inline MainOpeners gMainOpeners;

}  // namespace orcussch
