#include "entry/screens.h"

#include "maintenance/frmCustMain.h"
#include "maintenance/openers.h"
#include "session/ModCustSch.h"
#include "session/openers.h"
#include "setup/frmCreditCardSetup.h"
#include "setup/frmMapCode.h"
#include "setup/frmPhoneSetup.h"
#include "setup/frmUserStartup.h"

namespace orcussch {

namespace {

/// Shows a screen modally; one that has only hidden itself goes.
template <class Screen>
void ShowAndUnload(platform::ScreenRef<Screen>& screen) {
  screen.Show();
  if (Screen* left = screen.peek(); left != nullptr && IsFormLoaded(left)) App().Unload(*left);
}

}  // namespace

void ConnectScreens() {
  gSessionOpeners.showMain = [] { screens::frmCustMain.Show(); };
  gSessionOpeners.giveUpMain = [] { screens::frmCustMain.release(); };

  // Each screen that comes fills its own opener here. What stays empty is not there yet: its commands keep their keys and do
  // nothing, and a user who wants to begin with the queries begins with the list.
  gSessionOpeners.showQueries = nullptr;
  gMainOpeners = MainOpeners{
      .creditCardSetup = [](frmCustMain&) { screens::frmCreditCardSetup.Show(); },
      .phoneSetup = [](frmCustMain&) { screens::frmPhoneSetup.Show(); },
      .mapCodes = [](frmCustMain&) { screens::frmMapCode.Show(); },
      .userOptions = [](frmCustMain&) { ShowAndUnload(screens::frmUserStartup); },
  };
}

}  // namespace orcussch
