#pragma once

#include <string>
#include <string_view>

namespace engine::postgres {

/// Which file of which company on which server: "postgresql://HOST[:PORT][,HOST[:PORT]...]/DATABASE/[COMPANY/]FILE". Users, passwords
/// and options are the client library's own matter (its service and password files) and can't stand here.
struct Target {
  std::string hosts;     ///< by commas; a host that begins with a slash is a folder with the server's socket
  std::string ports;     ///< by commas, as many as hosts; an empty one is the server's usual port
  std::string database;
  std::string schema;    ///< "orv1_customer" for customer.zdb of the company orv1

  /// The database, in words that no other one has.
  std::string DatabaseName() const { return hosts + ' ' + ports + ' ' + database; }
  /// Whether one connection serves both.
  bool SameDatabase(const Target& other) const { return hosts == other.hosts && ports == other.ports && database == other.database; }
};

/// Raises 3044 for what can't be one. A value with a user, a password or options in it is never repeated in the message.
Target ParseTarget(std::string_view path);

}  // namespace engine::postgres
