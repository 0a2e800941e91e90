#include <filesystem>
#include <iostream>

#include "engine/data_file.h"
#include "platform/values/error.h"
#include "suite/company_schema.h"
#include "suitefiles/company/company_files.h"
#include "suitefiles/program/command_line.h"
#include "suitefiles/program/commands.h"

namespace suitefiles {

int RunTemp(const std::vector<std::string>& words, const Console& console) {
  const CommandLine line(words, {{"--user", true}});
  line.ExpectOperands({"DIR"});
  const int user = static_cast<int>(line.RequiredNumber("--user", 0, 2147483647));
  const std::filesystem::path file = DataFolder(line.Operands()[0]).TemporaryFile(user);
  const auto there = [&] {
    console.out << file.string() << " is there already and is unchanged.\n";
    return kDone;
  };
  if (std::filesystem::exists(file)) return there();
  std::error_code problem;
  std::filesystem::create_directories(file.parent_path(), problem);
  if (problem) throw CommandError(file.parent_path().string() + " can't be made: " + problem.message());
  try {
    engine::CreateDataFile(file.string(), suite::TablesOf(suite::DataFile::Temporary), true);
  } catch (const platform::Error& failure) {
    if (failure.Number() != platform::error::number::FileExists) throw;
    return there();  // another program has just made it
  }
  console.out << file.string() << " made.\n";
  return kDone;
}

}  // namespace suitefiles
