#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/data/data.h"
#include "platform/services/operating_system.h"

/// The library for hosts: where its files are, what it is put together from, and its border.
namespace library {

/// An option can't be taken; the text says which and why.
class OptionError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A folder that an option names is not there.
class FolderError final : public OptionError {
 public:
  using OptionError::OptionError;
};

/// What is done about a local folder that is not there.
enum class MissingLocal { Refuse, Make, Leave };

/// Folders of the host; relative ones count from the working folder.
struct PlaceOptions {
  std::string libraryFolder;               ///< dat.zdb, orv<n>.ini
  std::optional<std::string> localFolder;  ///< below it orvTEMP lies; default: the user's state folder
  MissingLocal missingLocal = MissingLocal::Refuse;
  std::vector<std::string> drives;  ///< "C=DIR": names have drive letters, drive C is the local root; none: names of the host
};

/// Where a program's files are: the system that names them, and the library's folder in its style.
struct Places {
  std::unique_ptr<platform::OperatingSystem> system;
  std::string libraryFolder;  ///< as the program writes it
  std::string dataFolder;     ///< the same as a folder of the host, absolute
  std::string localFolder;    ///< the local root as a folder of the host, without a separator at its end
};

/// Finds the folders and makes their names absolute. Raises OptionError, FolderError for one that is not there.
Places FindPlaces(const PlaceOptions& options);

/// The file's absolute name; it need not be there.
std::string AbsoluteName(const std::string& file);

/// What a transaction of an engine locks on a server. Files are always locked whole.
enum class Locks { Rows, WholeFiles };
/// Whether an engine is told by others' engines that they have written, or asks before each look; files are always asked.
enum class Others { Tell, AreAsked };

/// An engine. `system` must outlive it; `exactRows`: lists up to so many rows are read at once.
std::unique_ptr<platform::DataEngine> MakeEngine(const platform::OperatingSystem& system, std::optional<std::int64_t> exactRows = {},
                                                 Locks locks = Locks::Rows, Others others = Others::Tell);

/// The program's path of a user's temporary file.
std::string TemporaryFile(const platform::OperatingSystem& system, std::int32_t user);
/// Makes it with its empty tables when it is missing. Raises platform::Error, or FolderError for a folder that can't be made.
void MakeTemporaryFile(const platform::OperatingSystem& system, std::int32_t user);

}  // namespace library
