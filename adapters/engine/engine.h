#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/data/data.h"

namespace platform {
class SnapshotReader;
}

namespace engine {

struct EngineOptions {
  /// Results up to this many rows use the exact strategy; larger ones in one indexed order the live one. 0 proves the
  /// large-file code on small files.
  std::int64_t exactRows = 20'000;
  /// Tables whose lists use the exact strategy as long as they are short, whatever exactRows says: lists of codes, which the
  /// screens keep while somebody adds to the table.
  std::vector<std::string> codeTables;
  /// How long a locked file is waited for before 3218, in milliseconds.
  int lockWait = 2000;
  /// The real file that a path of the program's style names, "" when there can be none; empty: paths are real names.
  std::function<std::string(std::string_view path)> hostPath;
  /// Whether a file lies on a file system that other machines share; empty: the system is asked.
  std::function<bool(const std::string& path)> onNetwork;
  /// On a server, too, who writes in a transaction keeps all others from writing into the file's tables until it ends, as files do by
  /// themselves; for tests.
  bool lockWholeFiles = false;
  /// On a server: whoever looks at rows that are here asks first whether others have written, as files are asked, instead of waiting to be
  /// told; for tests, whose users act in the same instant.
  bool askOthers = false;
  /// The present moment for Date(), Time() and Now() in statements, and for the year of texts with month and day alone; empty:
  /// the machine's clock.
  std::function<platform::Date()> now;
  /// In a run of moves without a pause, rows read ahead are taken as they are for this long before the file is asked again
  /// whether someone has changed it, in microseconds.
  int readAheadTrust = 100;
};

/// Option of Database::Execute beside those of the screens: a row of which a value can't become its field's is left alone, as
/// one that breaks a key is; the screens' own way writes such a row with Null in that field.
inline constexpr int kExecuteWholeRows = 1 << 16;

/// The data engine over files, each attached once, and over servers' databases ("postgresql://..."), each with a connection of its own.
std::unique_ptr<platform::DataEngine> MakeEngine(const EngineOptions& options = {});
/// A connection of its own for one long reading of one state of the files (platform/data/row_stream.h).
std::unique_ptr<platform::SnapshotReader> MakeSnapshotReader(const EngineOptions& options = {});

}  // namespace engine
