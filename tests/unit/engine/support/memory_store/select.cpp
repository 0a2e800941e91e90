#include "unit/engine/support/memory_store/select.h"

#include <algorithm>

namespace memory_store {
namespace {

Select::Item::Kind AggregateOf(const Token& token) {
  using enum Select::Item::Kind;
  if (token.kind != Token::Kind::Word) return Value;
  return token.text == "COUNT" ? Count : token.text == "MIN" ? Least : token.text == "MAX" ? Greatest : Value;
}

void ParseItems(Tokens& tokens, const Disk& disk, Select& select) {
  do {
    Select::Item item;
    item.kind = AggregateOf(tokens.Peek());
    if (item.kind == Select::Item::Kind::Value) {
      item.value = ParseExpression(tokens, select.from, disk);
    } else {
      tokens.Take();
      tokens.NeedSign("(");
      if (item.kind == Select::Item::Kind::Count)
        tokens.NeedSign("*");
      else
        item.value = ParseExpression(tokens, select.from, disk);
      tokens.NeedSign(")");
    }
    select.items.push_back(std::move(item));
  } while (tokens.TakeSign(","));
}

// The table of the SELECT that begins here: its columns are named before it.
From FindFrom(Tokens tokens, const Disk& disk) {
  int depth = 0;
  while (tokens.Peek().kind != Token::Kind::End) {
    if (tokens.AtSign("(")) ++depth;
    if (tokens.AtSign(")") && --depth < 0) break;
    if (depth == 0 && tokens.TakeWord("FROM")) {
      From from;
      from.table = &NeedTable(tokens, disk);
      if (tokens.TakeWord("AS")) from.alias = tokens.Take().text;
      return from;
    }
    tokens.Take();
  }
  return {};
}

Select::Key ParseKey(Tokens& tokens, const Disk& disk, const From& from) {
  Select::Key key;
  key.value = ParseExpression(tokens, from, disk);
  key.descending = tokens.TakeWord("DESC");
  key.nullsFirst = key.descending;  // as a value above all others
  if (tokens.TakeWord("NULLS")) {
    key.nullsFirst = tokens.TakeWord("FIRST");
    if (!key.nullsFirst) tokens.NeedWord("LAST");
  }
  return key;
}

bool Before(const Select::Key& key, const StoredValue& left, const StoredValue& right) {
  if (IsNull(left) != IsNull(right)) return key.nullsFirst == IsNull(left);
  return key.descending ? Order(left, right) > 0 : Order(left, right) < 0;
}

void Aggregate(const Select& select, std::vector<StoredValue>& sums, const Scene& scene) {
  sums.resize(select.items.size());
  for (std::size_t i = 0; i < sums.size(); ++i) {
    const Select::Item& item = select.items[i];
    if (item.kind == Select::Item::Kind::Count) {
      sums[i] = (IsNull(sums[i]) ? 0 : std::get<std::int64_t>(sums[i])) + 1;
      continue;
    }
    const StoredValue value = item.value(scene);
    const bool less = item.kind == Select::Item::Kind::Least;
    if (!IsNull(value) && (IsNull(sums[i]) || (less ? Order(value, sums[i]) < 0 : Order(value, sums[i]) > 0))) sums[i] = value;
  }
}

}  // namespace

Select ParseSelect(Tokens& tokens, const Disk& disk) {
  tokens.NeedWord("SELECT");
  Select select;
  select.from = FindFrom(tokens, disk);
  ParseItems(tokens, disk, select);
  if (tokens.TakeWord("FROM")) {
    NeedTable(tokens, disk);
    if (tokens.TakeWord("AS")) tokens.Take();
  }
  if (tokens.TakeWord("WHERE")) select.where = ParseExpression(tokens, select.from, disk);
  if (tokens.TakeWord("ORDER")) {
    tokens.NeedWord("BY");
    do select.order.push_back(ParseKey(tokens, disk, select.from));
    while (tokens.TakeSign(","));
  }
  if (tokens.TakeWord("LIMIT")) select.limit = ParseExpression(tokens, select.from, disk);
  if (tokens.TakeWord("OFFSET")) select.skip = ParseExpression(tokens, select.from, disk);
  return select;
}

Rows RunSelect(const Select& select, const std::vector<StoredValue>& parameters) {
  struct Found {
    std::vector<StoredValue> keys;
    std::vector<StoredValue> cells;
  };
  const bool aggregate = std::ranges::any_of(select.items, [](const auto& item) { return item.kind != Select::Item::Kind::Value; });
  std::vector<Found> found;
  std::vector<StoredValue> sums(select.items.size());
  if (aggregate && select.items.front().kind == Select::Item::Kind::Count) sums.front() = std::int64_t{0};
  const auto take = [&](const Scene& scene) {
    if (select.where && !Holds(select.where(scene))) return;
    if (aggregate) return Aggregate(select, sums, scene);
    Found& row = found.emplace_back();
    for (const Select::Key& key : select.order) row.keys.push_back(key.value(scene));
    for (const Select::Item& item : select.items) row.cells.push_back(item.value(scene));
  };
  if (select.from.table == nullptr)
    take({.parameters = &parameters});
  else
    for (const auto& [key, cells] : select.from.table->rows) take({&parameters, select.from.table, key, &cells});
  if (aggregate) return {sums};

  std::ranges::stable_sort(found, [&](const Found& left, const Found& right) {
    for (std::size_t i = 0; i < select.order.size(); ++i) {
      if (Before(select.order[i], left.keys[i], right.keys[i])) return true;
      if (Before(select.order[i], right.keys[i], left.keys[i])) return false;
    }
    return false;
  });
  const Scene none{.parameters = &parameters};
  const auto number = [&](const Expression& expression, std::size_t otherwise) {
    return expression ? static_cast<std::size_t>(std::get<std::int64_t>(expression(none))) : otherwise;
  };
  const std::size_t first = std::min(number(select.skip, 0), found.size());
  const std::size_t end = first + std::min(number(select.limit, found.size()), found.size() - first);
  Rows rows;
  for (std::size_t i = first; i < end; ++i) rows.push_back(std::move(found[i].cells));
  return rows;
}

}  // namespace memory_store
