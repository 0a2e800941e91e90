#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "custsearch/tasks.h"
#include "engine/data_file.h"
#include "entry/screens.h"
#include "library/places.h"
#include "library/reports.h"
#include "library/windows.h"
#include "maintenance/frmCustMain.h"
#include "robot/commands/commands.h"
#include "robot/hands/model_hands.h"
#include "robot/runner/runner.h"
#include "session/CustSearch.h"
#include "session/ModCustSch.h"
#include "session/inspect.h"
#include "setup/accounts/accounts_picker.h"

namespace custsearch {
namespace {

namespace fs = std::filesystem;

class SessionHost final : public robot::HostObject {
 public:
  explicit SessionHost(platform::Application& app) : session_(app) {}
  std::optional<platform::Value> Get(std::string_view property) const override {
    if (!orcussch::CustSearch::IsProperty(property)) return std::nullopt;
    return session_.Get(property);
  }
  bool Let(std::string_view property, const platform::Value& value) override {
    if (!orcussch::CustSearch::IsProperty(property)) return false;
    session_.Let(property, value);
    return true;
  }
  void ShowUser() override { session_.ShowUser(); }

 private:
  orcussch::CustSearch session_;
};

std::string ShellWord(const std::string& word) {
  std::string quoted = "'";
  for (const char c : word) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + "'";
}

/// The exit status in what the shell gives back: POSIX systems keep it in the second byte.
int ExitStatusOf(int given) {
  constexpr int kByte = 256;
  return given >= kByte ? given / kByte : given;
}

/// The programs that scenarios may run: the suite's own, beside this one.
std::optional<int> RunProgram(const fs::path& folder, const std::vector<std::string>& words) {
  if (words[0] != "suitefiles" && words[0] != "custsearch") return std::nullopt;
  const fs::path program = folder / words[0];
  std::error_code ignored;
  if (!fs::exists(program, ignored)) return std::nullopt;
  std::string line = ShellWord(program.string());
  for (std::size_t i = 1; i < words.size(); ++i) line += " " + ShellWord(words[i]);
  std::cout.flush();
  return ExitStatusOf(std::system(line.c_str()));
}

/// The application is made after the surroundings, which reach it by this.
struct Late {
  platform::Application* app = nullptr;
};

/// Scenarios keep their temporary files beside the data, so that they leave nothing behind elsewhere. They make no folder
/// either: one that is missing is a missing temporary folder.
library::Places FindPlaces(const Options& options) {
  library::PlaceOptions places;
  places.libraryFolder = options.data;
  std::error_code told;
  if (!options.windowsPaths) places.localFolder = options.local ? *options.local : fs::canonical(options.data, told).string();
  places.missingLocal = library::MissingLocal::Leave;
  places.drives = options.drives;
  return library::FindPlaces(places);
}

robot::Surroundings Around(const Options& options, const library::Places& places, const Late& late, const std::string& program) {
  robot::Surroundings around;
  around.directory = places.dataFolder;
  around.companies = options.companies;
  around.localRoot = places.localFolder;
  around.company = options.company;
  around.user = options.user;
  around.makeHost = [&late] { return std::make_unique<SessionHost>(*late.app); };
  around.sessionValue = orcussch::SessionValue;
  around.toolbarReady = []() -> std::optional<bool> {
    const auto* main = orcussch::screens::frmCustMain.peek();
    return main != nullptr && main->Loaded() ? std::optional<bool>(main->mToolbarReady) : std::nullopt;
  };
  around.dataPath = [](std::int32_t company, std::string_view file) { return orcussch::GetDataPath(company, std::string(file)); };
  around.accounts = [](const platform::AccountsLookupInput& input) { return orcussch::MakeAccountsPicker()->Run(input); };
  around.makeReports = [&places, &late] {
    return library::MakeReadableReports({[&late] { return late.app; }, places.libraryFolder, places.dataFolder});
  };
  around.tempPath = [&late](std::int32_t user) { return library::TemporaryFile(late.app->System(), user); };
  around.makeEngine = [&options, &late] {
    return library::MakeEngine(late.app->System(), options.threshold, library::Locks::WholeFiles, library::Others::AreAsked);
  };
  around.dropTable = [&late](const std::string& path, const std::string& table) {
    engine::DropTable(late.app->System().ToHostPath(path), table);
  };
  around.runProgram = [folder = fs::path(program).parent_path()](const auto& words) { return RunProgram(folder, words); };
  return around;
}

std::optional<robot::Script> Read(const std::string& file) {
  robot::ScriptReading reading;
  if (file == "-") {
    reading = robot::ReadScript(std::cin, file, robot::Commands());
  } else {
    std::error_code ignored;
    std::ifstream input(file, std::ios::binary);
    if (!input || fs::is_directory(file, ignored)) {
      std::cerr << "custsearch: the scenario " << file << " can't be read\n";
      return std::nullopt;
    }
    reading = robot::ReadScript(input, file, robot::Commands());
  }
  for (const auto& error : reading.errors) std::cerr << reading.script.name << ':' << error.line << ": " << error.message << '\n';
  if (!reading.errors.empty()) return std::nullopt;
  return std::move(reading.script);
}

}  // namespace

int RunScenario(const Options& options, const std::string& program) {
  auto script = Read(options.scenario);
  if (!script) return kWrongUsage;
  library::Places places = FindPlaces(options);
  Late late;
  robot::Runner runner(std::move(*script), robot::Commands(), Around(options, places, late, program), std::cout);

  platform::ApplicationParts parts;
  std::unique_ptr<platform::UserHands> hands = robot::MakeModelHands();
  if (options.front == Front::Desktop) {
    parts.frontEnd = library::MakeWindows("", true);
    hands = library::MakeWindowHands(*parts.frontEnd);
  }
  runner.FillIn(parts);
  parts.engine = library::MakeEngine(*places.system, options.threshold, library::Locks::Rows, library::Others::AreAsked);
  parts.system = std::move(places.system);
  parts.path = places.libraryFolder;
  parts.title = "Customer Search";

  platform::Application app(std::move(parts));
  late.app = &app;
  runner.Attach(app, *hands);
  orcussch::AttachApplication(&app);
  orcussch::ConnectScreens();
  const int status = runner.Run();
  hands.reset();
  return status;
}

}  // namespace custsearch
