#include "system/screen_kills/victim.h"

#include <fstream>

namespace system_test {
namespace {

// An answer field of the host carries the word to the output: no control of the screen is touched.
void Say(std::ostream& script, const std::string& word) {
  script << "host CustomerFirstName " << word << "\nprint host CustomerFirstName\n";
}

void WriteScript(const std::string& file, const std::vector<Operation>& acts) {
  std::ofstream script(file);
  script << "today 3/4/2026\nhost UserID 1\nhost CompanyID 1\nhost ShowUser\n";
  for (std::size_t i = 0; i < acts.size(); ++i) {
    script << "# " << acts[i].kind << '\n';
    for (const auto& command : acts[i].before) script << command << '\n';
    Say(script, "begin" + std::to_string(i));
    for (const auto& command : acts[i].write) script << command << '\n';
    Say(script, "done" + std::to_string(i));
    for (const auto& command : acts[i].after) script << command << '\n';
  }
  script << "close\n";
}

}  // namespace

Victim::Victim(const Place& place, const std::vector<Operation>& acts, const std::vector<std::string>& options) {
  WriteScript(place.script, acts);
  std::vector<std::string> words{place.programs + "/custsearch", "--scenario", place.script, "--data", place.company};
  words.insert(words.end(), options.begin(), options.end());
  program_ = std::make_unique<Child>(words);
}

bool Victim::Hear() {
  std::string line;
  if (!program_->ReadLine(line)) return false;
  if (line == "begin" + std::to_string(begun_))
    ++begun_;
  else if (line == "done" + std::to_string(done_))
    ++done_;
  else
    complaints_ += line + '\n';
  return true;
}

bool Victim::WaitFor(std::size_t act) {
  while (begun_ <= act)
    if (!Hear()) return false;
  return true;
}

std::size_t Victim::Kill() {
  program_->Kill();
  while (Hear()) {
  }
  program_->Wait();
  return done_;
}

int Victim::Wait() {
  while (Hear()) {
  }
  return program_->Wait();
}

}  // namespace system_test
