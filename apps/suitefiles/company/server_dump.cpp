#include "suitefiles/company/server_dump.h"

#include <spawn.h>
#include <sys/wait.h>

#include <filesystem>
#include <vector>

#include "engine/data_file.h"
#include "suitefiles/program/command_line.h"

extern char** environ;

namespace suitefiles {

void DumpFromServer(const std::string& path, const std::string& to) {
  std::vector<std::string> words{"pg_dump", "--format=custom", "--no-password", "--file=" + to};
  for (const std::string& word : engine::ServerToolWords(path)) words.push_back(word);
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);

  pid_t tool = 0;
  int status = 0;
  const bool ran = ::posix_spawnp(&tool, arguments[0], nullptr, nullptr, arguments.data(), environ) == 0 && ::waitpid(tool, &status, 0) == tool;
  constexpr int kNotThere = 127;
  if (ran && WIFEXITED(status) && WEXITSTATUS(status) == 0) return;
  std::error_code ignored;
  std::filesystem::remove(to, ignored);
  const bool missing = !ran || (WIFEXITED(status) && WEXITSTATUS(status) == kNotThere);
  throw CommandError(missing ? "pg_dump is not installed; it comes with the server's client programs"
                             : path + " can't be copied: pg_dump failed");
}

}  // namespace suitefiles
