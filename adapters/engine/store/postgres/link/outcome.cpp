#include "engine/store/postgres/link/outcome.h"

#include <array>
#include <charconv>
#include <random>

#include "engine/store/postgres/wording/names.h"
#include "engine/store/query.h"

namespace engine::postgres {
namespace {

std::string NewDesk() {
  std::random_device device;
  const std::uint64_t number = (static_cast<std::uint64_t>(device()) << 32U) | device();
  std::array<char, 16> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number, 16).ptr;
  return "ORCusSch " + std::string(digits.data(), end);
}

std::string Table(const std::string& schema) { return QuoteName(schema) + '.' + QuoteName(kSavesTable); }

// Behind the name in quotes that begins there; npos if none does.
std::size_t BehindName(std::string_view sql, std::size_t from) {
  if (from >= sql.size() || sql[from] != '"') return std::string_view::npos;
  for (std::size_t at = from + 1; at < sql.size(); ++at) {
    if (sql[at] != '"') continue;
    if (at + 1 == sql.size() || sql[at + 1] != '"') return at + 1;
    ++at;
  }
  return std::string_view::npos;
}

// The name behind the last RETURNING. A text of the user's can't pass for one: behind it stands at least its own apostrophe.
std::string_view GivenBack(std::string_view sql) {
  constexpr std::string_view kWord = " RETURNING ";
  const std::size_t word = sql.rfind(kWord);
  if (word == std::string_view::npos) return {};
  const std::size_t name = word + kWord.size();
  return BehindName(sql, name) == sql.size() ? sql.substr(name) : std::string_view();
}

}  // namespace

SaveMarks::SaveMarks() : desk_(NewDesk()) {}

Mark SaveMarks::Next(const std::string& schema) { return {TextOf(schema, "$1"), std::to_string(++last_)}; }

std::string SaveMarks::NextText(const std::string& schema) { return TextOf(schema, std::to_string(++last_)); }

std::string SaveMarks::TextOf(const std::string& schema, const std::string& save) {
  const std::string table = Table(schema);
  std::string text;
  // Desks that have not saved for a month are gone. Whoever is at it already does it.
  if (begun_.insert(schema).second)
    text = "WITH gone AS (DELETE FROM " + table + " WHERE desk IN (SELECT desk FROM " + table +
           " WHERE at < now() - interval '30 days' FOR UPDATE SKIP LOCKED)) ";
  return text + "INSERT INTO " + table + " (desk, save, number, at) VALUES (" + QuoteText(desk_) + ", " + save +
         ", coalesce(pg_current_xact_id_if_assigned(), " + QuoteText(kWroteNothing) +
         "), now()) ON CONFLICT (desk) DO UPDATE SET save = excluded.save, number = excluded.number, at = excluded.at";
}

std::optional<std::string> SaveMarks::Stored(Channel& channel, const std::string& schema, std::uint64_t save) const {
  {
    // One that waits for another server to confirm its commit stores it here when it is ended, and there perhaps never.
    Query old(channel, std::string_view("SELECT wait_event IS NOT DISTINCT FROM 'SyncRep', pg_terminate_backend(pid, 2000) FROM pg_stat_activity "
                                        "WHERE application_name = $1 AND usename = current_user AND pid <> pg_backend_pid()"));
    old.Bind(1, std::string_view(desk_));
    bool known = true;
    while (old.Step()) known = known && old.Int(0) == 0 && old.Int(1) != 0;
    if (!known) return {};
  }
  // A write: once it is acknowledged, so is all before it, on every server that must confirm.
  Query mark(channel, std::string_view("UPDATE " + Table(schema) + " SET at = now() WHERE desk = $1 AND save = $2 RETURNING number"));
  mark.Bind(1, std::string_view(desk_));
  mark.Bind(2, static_cast<std::int64_t>(save));
  if (!mark.Step()) return {};
  std::string number(mark.Text(0));
  while (mark.Step()) {
  }
  return number;
}

bool GivesRowsBack(std::string_view sql) { return !GivenBack(sql).empty(); }

std::string RowsWrittenBy(std::string_view sql, const std::string& number) {
  const bool update = sql.starts_with("UPDATE ");
  if (!update && !sql.starts_with("INSERT INTO ")) return {};
  const std::size_t name = sql.find('"');
  const std::size_t dot = BehindName(sql, name);
  if (dot >= sql.size() || sql[dot] != '.') return {};
  const std::size_t end = BehindName(sql, dot + 1);
  if (end == std::string_view::npos) return {};
  const std::string_view given = GivenBack(sql);
  return "SELECT " + std::string(given.empty() ? "1" : given) + " FROM " + std::string(sql.substr(name, end - name)) + " WHERE xmin = " +
         QuoteText(number) + "::xid8::xid";
}

}  // namespace engine::postgres
