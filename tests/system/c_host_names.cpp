// A host whose own functions bear names that the library uses inside: neither may reach the other's.
#include <orcussch.h>

#include <cstdio>
#include <memory>
#include <string>

namespace {
int reached = 0;
}

namespace platform {
class DiagnosticLog;
class ErrorLog;
class OperatingSystem;
bool IsValidUtf8(std::string_view) {
  ++reached;
  return false;
}
}  // namespace platform

namespace suite {
std::string UserStateFolder() {
  ++reached;
  return "/nowhere/";
}
std::unique_ptr<platform::OperatingSystem> MakeNativeSystem(const std::string&) {
  ++reached;
  return {};
}
std::unique_ptr<platform::ErrorLog> MakeErrorLog(const std::string&, std::int64_t) {
  ++reached;
  return {};
}
}  // namespace suite

// Complete, so that the functions above can be defined here.
namespace platform {
class ErrorLog {};
class OperatingSystem {};
}  // namespace platform

namespace engine {
void CreateDataFile(const std::string&) { ++reached; }
}  // namespace engine

int main(int count, char** words) {
  if (count != 2) return 2;
  orcussch_options options{};
  options.size = sizeof options;
  options.library_folder = words[1];
  options.local_folder = words[1];
  options.make_temporary_file = 1;
  orcussch_handle* handle = nullptr;
  if (orcussch_create(&options, &handle) != ORCUSSCH_OK || orcussch_set_number(handle, "UserID", 1) != ORCUSSCH_OK ||
      orcussch_set_number(handle, "CompanyID", 1) != ORCUSSCH_OK || orcussch_release(handle) != ORCUSSCH_OK) {
    std::fprintf(stderr, "the library failed: %s\n", orcussch_last_error());
    return 1;
  }
  if (reached != 0) std::fprintf(stderr, "the library called %d functions of the host\n", reached);
  if (suite::UserStateFolder() != "/nowhere/") std::fputs("the host got the library's function\n", stderr);
  return reached == 1 ? 0 : 1;
}
