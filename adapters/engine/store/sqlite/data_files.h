#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "engine/store/sqlite/attached_file.h"
#include "engine/store/sqlite/file_format.h"

namespace engine {

/// The files that a connection has open, each once. They may be more than the store can have attached at a time.
class DataFiles {
 public:
  DataFiles(Connection& connection, NetworkTest onNetwork);
  ~DataFiles();

  /// The file at that path, attached if it isn't yet. Raises 3024, 3044, 3051 for what isn't there or may not be opened, 3343 for
  /// another or a newer format, 3049 for a damaged file, 3045 for one that stays locked, 3043 for one on a network.
  std::shared_ptr<AttachedFile> Open(std::string_view path) { return Open(path, path); }
  /// The same; errors name the file as the program does, by `asked`.
  std::shared_ptr<AttachedFile> Open(std::string_view path, std::string_view asked);

 private:
  std::shared_ptr<AttachedFile> Attach(const std::string& path, const std::string& asked);
  void AttachStatement(const std::string& path, const std::string& alias, const std::string& asked);
  void Configure(const std::string& alias);
  void SetSafety(const std::string& alias, bool workFile);
  /// Attaches what a statement names and what is away.
  void BringBack(std::string_view sql);
  void AttachAgain(AttachedFile& file);
  /// Sends files away until one more can be attached; those of the list stay. Raises 3048 when all are in use.
  void MakeRoom(const std::vector<AttachedFile*>& needed);
  void Detach(const AttachedFile& file);
  /// Gives a half opened file up.
  void Abandon(const std::string& alias);
  void DetachLeftovers();

  Connection& connection_;
  NetworkTest onNetwork_;
  std::map<std::string, std::weak_ptr<AttachedFile>> files_;  ///< by canonical path
  std::map<int, AttachedFile*> byNumber_;
  std::vector<std::string> leftovers_;  ///< could not be detached yet
  int lastNumber_ = 0;
  std::shared_ptr<std::uint64_t> uses_ = std::make_shared<std::uint64_t>(0);
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace engine
