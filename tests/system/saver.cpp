#include <unistd.h>

#include <chrono>
#include <cstdint>
#include <iostream>
#include <optional>
#include <string>

#include "engine/engine.h"
#include "platform/values/error.h"

/// saver FILE SECONDS [FIRST]: adds customers "s1", "s2" ... for that long and tells of each, when it is known, "stored N" or
/// "failed N ERROR". Goes on after a failure, as a user does.
namespace {

void Tell(const std::string& line) {
  const std::string whole = line + "\n";
  if (::write(STDOUT_FILENO, whole.data(), whole.size()) != static_cast<ssize_t>(whole.size())) ::_exit(3);
}

void Save(platform::Database& database, const std::string& name) {
  const auto rows = database.OpenRecordset("Customers", platform::RecordsetType::Table);
  rows->AddNew();
  rows->SetField("LastName", name);
  rows->Update();
  rows->Close();
}

}  // namespace

int main(int count, char** words) {
  if (count < 3) return 2;
  using Clock = std::chrono::steady_clock;
  const auto end = Clock::now() + std::chrono::seconds(std::stoi(words[2]));
  const auto engine = engine::MakeEngine();
  std::optional<platform::DatabaseRef> database;
  for (std::int64_t number = count > 3 ? std::stoll(words[3]) : 1; Clock::now() < end; ++number) {
    try {
      if (!database) database = engine->OpenControlDatabase(words[1]);
      Save(**database, "s" + std::to_string(number));
      Tell("stored " + std::to_string(number));
    } catch (const platform::Error& error) {
      Tell("failed " + std::to_string(number) + ' ' + std::to_string(error.Number()));
      ::usleep(100'000);
    }
  }
  return 0;
}
