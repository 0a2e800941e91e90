#include "suitefiles/company/report_files.h"

#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

#include "platform/values/text.h"
#include "suitefiles/company/pin_picture.h"
#include "suitefiles/program/command_line.h"

namespace suitefiles {

namespace fs = std::filesystem;

namespace {

constexpr const char* kRecord = "reports.delivered";

/// FNV-1a over 64 bits, in hexadecimal: tells versions apart, guards against nobody.
std::string Checksum(const std::string& text) {
  std::uint64_t sum = 14695981039346656037ull;
  for (const unsigned char byte : text) sum = (sum ^ byte) * 1099511628211ull;
  char digits[17];
  std::snprintf(digits, sizeof digits, "%016llx", static_cast<unsigned long long>(sum));
  return digits;
}

std::string Content(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

/// The content under its name whole or not at all.
void Write(const fs::path& path, const std::string& text) {
  const fs::path fresh = path.string() + ".new-" + std::to_string(getpid());
  std::ofstream file(fresh, std::ios::binary);
  file << text;
  file.close();
  std::error_code problem;
  if (file) fs::rename(fresh, path, problem);
  if (!file || problem) {
    fs::remove(fresh, problem);
    throw CommandError("the file " + path.string() + " can't be written");
  }
}

using Checksums = std::map<std::string, std::string>;

Checksums ReadRecord(const fs::path& path) {
  Checksums sums;
  std::ifstream file(path);
  for (std::string sum, name; file >> sum && std::getline(file >> std::ws, name);) sums[name] = sum;
  return sums;
}

void WriteRecord(const fs::path& path, const Checksums& sums) {
  std::string text;
  for (const auto& [name, sum] : sums) text += sum + " " + name + "\n";
  Write(path, text);
}

std::string Line(const std::vector<std::string>& names, const char* what) {
  if (names.empty()) return "";
  return std::to_string(names.size()) + (names.size() == 1 ? " file of the library " : " files of the library ") + what + ".\n";
}

}  // namespace

std::vector<ReportFile> LibraryFiles() {
  std::vector<ReportFile> files = DeliveredReports();
  files.push_back({"pushblue.bmp", PinPicture()});
  return files;
}

PutReports PutReportFiles(const std::string& folder) {
  PutReports put;
  const fs::path record = fs::path(folder) / kRecord;
  const Checksums before = ReadRecord(record);
  Checksums now = before;
  for (const ReportFile& report : LibraryFiles()) {
    const fs::path path = fs::path(folder) / report.name;
    const std::string sum = Checksum(report.text);
    const bool stands = fs::exists(path);
    const std::string standing = stands ? Checksum(Content(path)) : "";
    if (standing != sum) {
      const auto known = before.find(report.name);
      if (stands && (known == before.end() || known->second != standing)) {
        put.left.push_back(report.name);
        continue;
      }
      Write(path, report.text);
      (stands ? put.renewed : put.added).push_back(report.name);
    }
    now[report.name] = sum;
  }
  if (now != before) WriteRecord(record, now);
  return put;
}

std::vector<std::string> LibraryFilesIn(const std::string& folder) {
  std::vector<std::string> delivered{kRecord};
  for (const ReportFile& file : LibraryFiles()) delivered.push_back(file.name);
  std::vector<std::string> names;
  std::error_code problem;
  for (fs::directory_iterator entry(folder, problem), end; !problem && entry != end; entry.increment(problem)) {
    const std::string name = entry->path().filename().string();
    const bool ours =
        platform::EqualsNoCase(entry->path().extension().string(), ".rpt") || std::ranges::find(delivered, name) != delivered.end();
    if (ours && entry->symlink_status().type() == fs::file_type::regular) names.push_back(name);
  }
  std::ranges::sort(names);
  return names;
}

std::string Told(const PutReports& put) {
  std::string text = Line(put.added, "added") + Line(put.renewed, "renewed");
  for (const std::string& name : put.left) text += name + " was changed here and is left as it is.\n";
  return text;
}

}  // namespace suitefiles
