#include "printing/data/report_folder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <optional>

#include "platform/values/text.h"
#include "printing/data/report_errors.h"
#include "printing/definition/report_file.h"

namespace printing {
namespace {

constexpr std::size_t kLongestFile = std::size_t{1} << 20;

// For one line of a log.
std::string Shown(std::string_view text) {
  constexpr std::size_t kMost = 200;
  std::string shown = platform::NormaliseLossy(text.substr(0, kMost));
  for (char& c : shown)
    if (static_cast<unsigned char>(c) < ' ') c = '?';
  return shown;
}

bool IsSeparator(char c) { return c == '/' || c == '\\'; }

std::string_view WithoutEnd(std::string_view folder) {
  while (!folder.empty() && IsSeparator(folder.back())) folder.remove_suffix(1);
  return folder;
}

// The name behind the folder; nothing where it isn't a name of that folder alone.
std::optional<std::string> NameIn(std::string_view folder, std::string_view file) {
  const std::string_view start = WithoutEnd(folder);
  std::string_view name = file;
  if (file.size() > start.size() && file.starts_with(start) && IsSeparator(file[start.size()])) name = file.substr(start.size() + 1);
  const bool plain = std::ranges::none_of(name, [](char c) { return IsSeparator(c) || c == ':' || c == '\0'; });
  if (!plain || name.empty() || name == "." || name == "..") return std::nullopt;
  return std::string(name);
}

class OpenFile {
 public:
  // A link is not followed, and a pipe not waited for.
  explicit OpenFile(const std::string& path) : number_(::open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC)) {}
  ~OpenFile() {
    if (number_ >= 0) ::close(number_);
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  bool Opened() const { return number_ >= 0; }
  bool IsPlainFile() const {
    struct stat state {};
    return ::fstat(number_, &state) == 0 && S_ISREG(state.st_mode);
  }
  /// All of it, or one byte more than a report may have.
  std::optional<std::string> ReadAll() const {
    std::string text(kLongestFile + 1, '\0');
    std::size_t size = 0;
    while (size < text.size()) {
      const ssize_t read = ::read(number_, text.data() + size, text.size() - size);
      if (read < 0 && errno == EINTR) continue;
      if (read < 0) return std::nullopt;
      if (read == 0) break;
      size += static_cast<std::size_t>(read);
    }
    text.resize(size);
    return text;
  }

 private:
  int number_;
};

std::string ReadText(const std::string& path, const std::string& shown) {
  const OpenFile file(path);
  if (!file.Opened()) {
    if (errno == ENOENT) throw ReportFailure(ReportError::FileMissing, shown + ": there is no such report file.");
    if (errno == ELOOP) throw ReportFailure(ReportError::FileOutside, shown + ": a report file must not be a link.");
    throw ReportFailure(ReportError::FileUnreadable, shown + ": the report file can't be read.");
  }
  const std::optional<std::string> text = file.IsPlainFile() ? file.ReadAll() : std::nullopt;
  if (!text) throw ReportFailure(ReportError::FileUnreadable, shown + ": the report file can't be read.");
  if (text->size() > kLongestFile) throw ReportFailure(ReportError::FileUnreadable, shown + ": the file is too long for a report.");
  return *text;
}

}  // namespace

ReportDefinition LoadReport(const ReportFolder& folder, std::string_view file) {
  const std::string shown = Shown(file);
  const auto textOf = [&](std::string_view wanted) {
    const std::optional<std::string> name = NameIn(folder.asWritten, wanted);
    if (!name) throw ReportFailure(ReportError::FileOutside, Shown(wanted) + ": reports lie in the library's folder alone.");
    return ReadText(std::string(WithoutEnd(folder.host)) + '/' + *name, Shown(wanted));
  };
  const std::string text = textOf(file);
  try {
    return ReadReportFile(text, textOf);
  } catch (const ReportFileError& error) {
    const bool newer = error.WhichFault() == ReportFileError::Fault::Newer;
    throw ReportFailure(newer ? ReportError::FileNewer : ReportError::FileSyntax, shown + ':' + error.what());
  }
}

}  // namespace printing
