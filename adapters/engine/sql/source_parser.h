#pragma once

#include <vector>

#include "engine/sql/ast/source.h"
#include "engine/sql/token_stream.h"

namespace engine::sql {

/// Reads what stands behind FROM (or UPDATE): tables and joins. A table of another file is written 'file'.Table.
class SourceParser {
 public:
  explicit SourceParser(TokenStream& tokens) : tokens_(tokens) {}

  /// `source { "," source }`. What does not parse: 3131, inside a join 3135.
  std::vector<Source> ParseSources();
  Source ParseSource();

 private:
  bool AtFile() const;
  Source ParseTerm(int depth);
  Source ParseJoins(int depth);
  Source ParseJoin(Source left, int depth);
  Expression ParseOn();

  TokenStream& tokens_;
};

}  // namespace engine::sql
