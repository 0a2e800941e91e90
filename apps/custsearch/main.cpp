#include <csignal>
#include <exception>
#include <iostream>
#include <string>

#include "custsearch/options.h"
#include "custsearch/tasks.h"
#include "library/places.h"

namespace {

int Run(const custsearch::Options& options, const std::string& program) {
  switch (options.task) {
    case custsearch::Task::Help:
      std::cout << custsearch::HelpText();
      return custsearch::kDone;
    case custsearch::Task::Version:
      std::cout << "custsearch " ORCUSSCH_VERSION "\n";
      return custsearch::kDone;
    case custsearch::Task::Scenario:
      return custsearch::RunScenario(options, program);
    case custsearch::Task::Report:
      return custsearch::RunReport(options);
    default:
      return custsearch::Work(options);
  }
}

int WrongUsage(const char* why) {
  std::cerr << "custsearch: " << why << "\n\"custsearch --help\" tells how it is used.\n";
  return custsearch::kWrongUsage;
}

}  // namespace

int main(int count, char** words) {
#ifdef SIGXFSZ
  // Where the size of files is limited, a write beyond that is a failure that the user is told of, not the program's end.
  std::signal(SIGXFSZ, SIG_IGN);
#endif
  try {
    return Run(custsearch::ParseOptions({words + 1, words + count}), words[0]);
  } catch (const custsearch::UsageError& error) {
    return WrongUsage(error.what());
  } catch (const library::OptionError& error) {
    return WrongUsage(error.what());
  } catch (const std::exception& error) {
    std::cerr << "custsearch: " << error.what() << '\n';
    return custsearch::kFailed;
  }
}
