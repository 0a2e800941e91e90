#include "engine/store/dialect.h"

#include <cassert>

namespace engine {
namespace {

std::string Quoted(std::string_view content, char quote) {
  assert(content.find('\0') == std::string_view::npos);
  std::string text(1, quote);
  for (const char c : content) {
    if (c == quote) text += quote;
    text += c;
  }
  return text + quote;
}

}  // namespace

Dialect Dialect::ForCells() const {
  Dialect cells = *this;
  cells.functionPrefix = cellPrefix;
  cells.like = cellPrefix + like;
  ++cells.nesting;  // the cell itself
  return cells;
}

std::string QuoteName(std::string_view name) { return Quoted(name, '"'); }

std::string QuoteText(std::string_view text) { return Quoted(text, '\''); }

}  // namespace engine
