#include "suite/error_log.h"

#include <unistd.h>

#include <cstdio>

#include "suite/line_log.h"

namespace suite {

namespace {

std::string Head() { return LogTime() + '\t' + std::to_string(::getpid()); }

class FileErrorLog final : public platform::ErrorLog {
 public:
  FileErrorLog(const std::string& path, std::int64_t greatestSize) : log_(path, greatestSize) {}

  void Write(const platform::ErrorRecord& record) noexcept override {
    try {
      const std::string line = Head() + "\tcompany=" + std::to_string(record.company) + "\tterminate=" + (record.terminate ? "1" : "0") +
                               "\tapplication=" + OneLine(record.applicationTitle) + "\tmodule=" + OneLine(record.module) +
                               "\tuser=" + std::to_string(record.user) + "\terror=" + std::to_string(record.number) +
                               "\tdescription=" + OneLine(record.description);
      if (!log_.Append(line)) std::fprintf(stderr, "%s: can't be written: %s\n", log_.Path().c_str(), line.c_str());
    } catch (...) {
      // No memory for the line: the report to the user goes on without it.
    }
  }

 private:
  LineLog log_;
};

const char* NameOf(platform::LogLevel level) {
  switch (level) {
    case platform::LogLevel::Debug:
      return "DEBUG";
    case platform::LogLevel::Information:
      return "INFO";
    case platform::LogLevel::Warning:
      return "WARNING";
    case platform::LogLevel::Failure:
      return "FAILURE";
  }
  return "?";
}

class FileDiagnosticLog final : public platform::DiagnosticLog {
 public:
  FileDiagnosticLog(const std::string& path, platform::LogLevel lowest, std::int64_t greatestSize)
      : log_(path, greatestSize), lowest_(lowest) {}

  platform::LogLevel Lowest() const noexcept override { return lowest_; }

  void Write(platform::LogLevel level, std::string_view text) noexcept override {
    if (level < lowest_) return;
    try {
      log_.Append(Head() + '\t' + NameOf(level) + '\t' + OneLine(MaskCardNumbers(text)));
    } catch (...) {
      // No memory: support does without this line.
    }
  }

 private:
  LineLog log_;
  platform::LogLevel lowest_;
};

}  // namespace

std::unique_ptr<platform::ErrorLog> MakeErrorLog(const std::string& hostPath, std::int64_t greatestSize) {
  return std::make_unique<FileErrorLog>(hostPath, greatestSize);
}

std::unique_ptr<platform::DiagnosticLog> MakeDiagnosticLog(const std::string& hostPath, platform::LogLevel lowest,
                                                           std::int64_t greatestSize) {
  return std::make_unique<FileDiagnosticLog>(hostPath, lowest, greatestSize);
}

}  // namespace suite
