#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "hostile/desk.h"
#include "hostile/image.h"
#include "hostile/setup_screens.h"

namespace hostile {

/// How the query screen comes into a procedure.
enum class Queries {
  None,      ///< not at all; where an act opens it, a query is run
  Opening,   ///< the procedure opens it, and it is left at once
  FromMain,  ///< the procedure runs on it, opened from the main screen
  First,     ///< the procedure runs on it when it comes up before the main screen
};

/// A procedure that yields: what stands on the screen before it begins, and what sets it off. The tables below are all that
/// a new procedure needs.
struct Procedure {
  std::string name;  ///< "phones/save-new/key"
  /// What the user has done before; must succeed.
  std::function<void(const Desk&)> situation;
  /// Sets it off; empty: the showing of the screen itself is looked at.
  std::function<void(const Desk&)> run;
  int writes = -1;                           ///< the tab whose records it writes; -1: none
  std::int32_t customer = kCustomer;         ///< the account that the host asks for
  std::string billing = "";                  ///< the host's billing status
  bool loop = false;                         ///< runs through a list: one that has gone is reported once
  const SetupScreenAtWork* setup = nullptr;  ///< the setup screen that is up; nullptr: the main screen
  bool writesSetup = false;                  ///< the setup screen's table
  Queries queries = Queries::None;
  /// On the query screen when it was opened once before; empty: it was not.
  std::function<void(const Desk&)> earlier = {};
};

using Procedures = std::vector<Procedure>;

/// The folders of the table.
Procedures RecordProcedures();
Procedures ListProcedures();
Procedures SetupProcedures();
Procedures QueryProcedures();
Procedures AllProcedures();

}  // namespace hostile
