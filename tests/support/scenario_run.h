#pragma once

#include <functional>
#include <string>

#include "platform/data/data.h"

namespace test_support {

class frmFirst;

/// How a test's scenario ended.
struct ScenarioResult {
  int status = 0;
  std::string output;
};

struct ScenarioOptions {
  /// A file with the table "People"; "" for a list without data.
  std::string database;
  /// What stands for "{DIR}/data/"; "" for that itself.
  std::string companies{};
  /// Makes the engines; empty: there is none, and the list stays closed.
  std::function<std::unique_ptr<platform::DataEngine>()> makeEngine;
  /// Called before the first command.
  std::function<void(frmFirst&)> prepare;
  /// Called when the scenario is over, before the screen goes.
  std::function<void(const frmFirst&)> inspect;
};

/// Runs a scenario under the name "t.scn" on the test screens. The host's object has the properties UserID, CompanyID and Name and
/// one, "Broken", that raises error 13; ShowUser shows frmFirst.
ScenarioResult RunScenario(const std::string& text, const ScenarioOptions& options = {});
/// What it prints when it is run inside ShowUser and the screen is closed at its end; "" when all holds.
std::string InScreen(const std::string& commands);

}  // namespace test_support
