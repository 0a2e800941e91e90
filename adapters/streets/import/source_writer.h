#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/services/map.h"
#include "streets/file/database.h"
#include "streets/index/street_index.h"

namespace streets {

/// A county or an extract that is imported.
struct SourceName {
  std::string code;    ///< by which a second import finds what it replaces
  std::string name;    ///< for people
  std::string notice;  ///< what its makers ask to be shown; "" for nothing
};

/// Writes one source into a streets file, in one transaction: what the file held of it before is replaced, and nothing of it is
/// there until Commit. Numbers of edges are their maker's, below 2^48; numbers of streets come from Street.
class SourceWriter {
 public:
  SourceWriter(Database& file, const SourceName& source);
  ~SourceWriter();
  SourceWriter(const SourceWriter&) = delete;
  SourceWriter& operator=(const SourceWriter&) = delete;

  /// A piece of street. One that is there already, from a record before or from the county on the other side, stays as it is.
  /// True when the source has none of that number yet.
  bool Edge(std::int64_t edge, platform::MapLine kind, const std::string& name, const Line& shape);
  /// The number of a street name (whose own is not looked at).
  std::int64_t Street(const StreetName& name);
  /// The edge bears the street's name, in the ZIP; "" where none is known.
  void Name(std::int64_t edge, std::int64_t street, std::string_view zip);
  void Range(const HouseRange& range);
  void Point(const AddressPoint& point);

  /// `records`: how many were read, `refused`: how many of them were not taken.
  void Commit(std::int64_t records, std::int64_t refused);

 private:
  struct Statements;
  void LiesIn(std::int64_t street, std::int32_t zip);

  std::unique_ptr<Statements> statements_;
};

/// How a file knows a line, with its box.
void WriteBox(Statement& insert, std::int64_t id, const Line& line);

}  // namespace streets
