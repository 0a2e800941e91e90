#include "engine/sql/keywords.h"

#include <algorithm>
#include <array>

#include "platform/values/text.h"

namespace engine::sql {
namespace {

struct Entry {
  std::string_view word;  // lower case; the table is sorted by it
  Keyword keyword;
  bool reserved;
  bool endsExpression;
};

// ALL, LEFT, RIGHT, OUTER, YES, NO and OFF are names too: fields and functions bear them.
constexpr std::array<Entry, 40> kEntries{{
    {"all", Keyword::All, false, false},
    {"and", Keyword::And, true, false},
    {"as", Keyword::As, true, true},
    {"asc", Keyword::Asc, true, true},
    {"between", Keyword::Between, true, false},
    {"by", Keyword::By, true, false},
    {"delete", Keyword::Delete, true, true},
    {"desc", Keyword::Desc, true, true},
    {"distinct", Keyword::Distinct, true, false},
    {"distinctrow", Keyword::DistinctRow, true, false},
    {"eqv", Keyword::Eqv, true, false},
    {"false", Keyword::False, true, false},
    {"from", Keyword::From, true, true},
    {"imp", Keyword::Imp, true, false},
    {"in", Keyword::In, true, false},
    {"inner", Keyword::Inner, true, true},
    {"insert", Keyword::Insert, true, true},
    {"into", Keyword::Into, true, true},
    {"is", Keyword::Is, true, false},
    {"join", Keyword::Join, true, true},
    {"left", Keyword::Left, false, false},
    {"like", Keyword::Like, true, false},
    {"mod", Keyword::Mod, true, false},
    {"no", Keyword::No, false, false},
    {"not", Keyword::Not, true, false},
    {"null", Keyword::Null, true, false},
    {"off", Keyword::Off, false, false},
    {"on", Keyword::On, true, true},
    {"or", Keyword::Or, true, false},
    {"order", Keyword::Order, true, true},
    {"outer", Keyword::Outer, false, false},
    {"right", Keyword::Right, false, false},
    {"select", Keyword::Select, true, true},
    {"set", Keyword::Set, true, true},
    {"true", Keyword::True, true, false},
    {"update", Keyword::Update, true, true},
    {"values", Keyword::Values, true, true},
    {"where", Keyword::Where, true, true},
    {"xor", Keyword::Xor, true, false},
    {"yes", Keyword::Yes, false, false},
}};
static_assert(std::ranges::is_sorted(kEntries, {}, &Entry::word));

const Entry* Find(Keyword keyword) {
  const auto at = std::ranges::find(kEntries, keyword, &Entry::keyword);
  return at == kEntries.end() ? nullptr : &*at;
}

}  // namespace

Keyword KeywordOf(std::string_view word) {
  constexpr std::size_t kLongest = 11;
  if (word.size() < 2 || word.size() > kLongest) return Keyword::None;
  const std::string lower = platform::ToLowerAscii(word);
  const auto at = std::ranges::lower_bound(kEntries, std::string_view(lower), {}, &Entry::word);
  return at != kEntries.end() && at->word == lower ? at->keyword : Keyword::None;
}

bool IsReserved(Keyword keyword) {
  const Entry* entry = Find(keyword);
  return entry != nullptr && entry->reserved;
}

bool EndsExpression(Keyword keyword) {
  const Entry* entry = Find(keyword);
  return entry != nullptr && entry->endsExpression;
}

bool IsPlainName(std::string_view name) {
  if (name.empty() || IsDigit(name.front())) return false;
  if (!std::ranges::all_of(name, IsWordByte)) return false;
  const Keyword keyword = KeywordOf(name);
  // The constants would be read as values.
  return !IsReserved(keyword) && keyword != Keyword::Yes && keyword != Keyword::No && keyword != Keyword::Off;
}

bool IsDigit(char byte) { return byte >= '0' && byte <= '9'; }

bool IsWordByte(char byte) {
  return IsDigit(byte) || (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || byte == '_' || (byte & 0x80) != 0;
}

}  // namespace engine::sql
