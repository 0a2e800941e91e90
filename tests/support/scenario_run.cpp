#include "support/scenario_run.h"

#include <map>
#include <sstream>

#include "platform/host/application.h"
#include "platform/values/error.h"
#include "platform/values/text.h"
#include "robot/commands/commands.h"
#include "robot/hands/model_hands.h"
#include "robot/runner/runner.h"
#include "suite/operating_system.h"
#include "support/test_screens.h"

namespace test_support {
namespace {

/// For screens that read no file.
class NoEngine final : public platform::DataEngine {
 public:
  platform::WorkspaceRef CreateWorkspace(std::string_view, std::string_view, std::string_view, int) override {
    throw platform::error::ObjectRequired();
  }
  void AppendWorkspace(const platform::WorkspaceRef&) override { throw platform::error::ObjectRequired(); }
  int WorkspaceCount() override { return 0; }
  platform::WorkspaceRef WorkspaceAt(int) override { throw platform::error::ItemNotFound(); }
  void RefreshWorkspaces() override {}
  platform::DatabaseRef OpenControlDatabase(std::string_view) override { throw platform::error::ObjectRequired(); }
  void OnWait(std::function<void()>) override {}
};

class TestHost final : public robot::HostObject {
 public:
  explicit TestHost(frmFirst& screen) : screen_(screen) {}

  std::optional<platform::Value> Get(std::string_view property) const override {
    for (const auto& [name, value] : values_)
      if (platform::EqualsNoCase(name, property)) return value;
    return std::nullopt;
  }
  bool Let(std::string_view property, const platform::Value& value) override {
    if (platform::EqualsNoCase(property, "Broken")) throw platform::error::TypeMismatch();
    for (auto& [name, held] : values_) {
      if (!platform::EqualsNoCase(name, property)) continue;
      held = value;
      return true;
    }
    return false;
  }
  void ShowUser() override { screen_.App().Show(screen_); }

 private:
  frmFirst& screen_;
  std::map<std::string, platform::Value> values_ = {
      {"UserID", platform::Value("0")}, {"CompanyID", platform::Value("0")}, {"Name", platform::Value("")}};
};

robot::Surroundings Around(const ScenarioOptions& options, const std::unique_ptr<frmFirst>& screen) {
  robot::Surroundings around;
  around.directory = "/suite";
  around.localRoot = "/local";
  around.companies = options.companies;
  around.company = 1;
  around.makeHost = [&screen] { return std::make_unique<TestHost>(*screen); };
  around.sessionValue = [](std::string_view name) {
    return platform::EqualsNoCase(name, "gAddPhone") ? std::optional<platform::Value>(true) : std::nullopt;
  };
  around.toolbarReady = [] { return std::optional<bool>(true); };
  around.dataPath = [&options](std::int32_t, std::string_view) { return options.database; };
  around.tempPath = [&options](std::int32_t) { return options.database; };
  around.makeEngine = options.makeEngine;
  around.dropTable = [](const std::string&, const std::string& table) { throw platform::Error(3011, "no table " + table); };
  around.runProgram = [](const std::vector<std::string>& words) -> std::optional<int> {
    if (words[0] == "good") return 0;
    if (words[0] == "bad") return 7;
    return std::nullopt;
  };
  return around;
}

}  // namespace

ScenarioResult RunScenario(const std::string& text, const ScenarioOptions& options) {
  std::istringstream input(text);
  robot::ScriptReading reading = robot::ReadScript(input, "t.scn", robot::Commands());
  ScenarioResult result;
  std::ostringstream output;
  if (!reading.errors.empty()) {
    for (const auto& error : reading.errors) output << "t.scn:" << error.line << ": " << error.message << '\n';
    return {2, output.str()};
  }
  std::unique_ptr<frmFirst> screen;
  robot::Runner runner(std::move(reading.script), robot::Commands(), Around(options, screen), output);
  platform::ApplicationParts parts;
  if (options.makeEngine)
    parts.engine = options.makeEngine();
  else
    parts.engine = std::make_unique<NoEngine>();
  parts.system = suite::MakeNativeSystem("/");
  runner.FillIn(parts);
  parts.path = "/suite";
  parts.title = "Test host";
  parts.threadId = 4711;
  platform::Application app(std::move(parts));
  const auto hands = robot::MakeModelHands();
  runner.Attach(app, *hands);
  screen = std::make_unique<frmFirst>(app);
  screen->database = options.makeEngine ? options.database : "";
  if (options.prepare) options.prepare(*screen);
  result.status = runner.Run();
  if (options.inspect) options.inspect(*screen);
  screen.reset();
  result.output = output.str();
  return result;
}

std::string InScreen(const std::string& commands) { return RunScenario("host ShowUser\n" + commands + "\nclose\n").output; }

}  // namespace test_support
