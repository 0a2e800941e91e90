#pragma once

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "support/temporary_folder.h"

/// What a run of the program left.
struct Outcome {
  int status = -1;
  std::string out;
  std::string err;
};

/// Runs the real program with these words and input.
inline Outcome RunSuitefiles(const std::vector<std::string>& words, const std::string& input = "") {
  const TemporaryFolder folder;
  const std::string in = folder.Write("in", input);
  const std::string out = folder / "out";
  const std::string err = folder / "err";
  const pid_t child = ::fork();
  if (child < 0) throw std::runtime_error("fork failed");
  if (child == 0) {
    ::dup2(::open(in.c_str(), O_RDONLY), STDIN_FILENO);
    ::dup2(::open(out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), STDOUT_FILENO);
    ::dup2(::open(err.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), STDERR_FILENO);
    std::vector<char*> arguments = {const_cast<char*>("suitefiles")};
    for (const auto& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    ::execv(SUITEFILES_PROGRAM, arguments.data());
    ::_exit(127);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, ReadAll(out), ReadAll(err)};
}

/// The rows that a statement selects, without the line of names.
inline std::string Select(const std::string& file, const std::string& statement) {
  const auto outcome = RunSuitefiles({"sql", "--no-header", file, statement});
  if (outcome.status != 0) throw std::runtime_error(statement + ": " + outcome.err);
  return outcome.out;
}

/// Runs an action statement that must work.
inline void Execute(const std::string& file, const std::string& statement) {
  const auto outcome = RunSuitefiles({"sql", file, statement});
  if (outcome.status != 0) throw std::runtime_error(statement + ": " + outcome.err);
}
