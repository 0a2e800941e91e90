#include "server/bare_server.h"

#include <libpq-fe.h>

#include <ctime>

#include <algorithm>
#include <stdexcept>

#include "engine/store/postgres/link/target.h"

namespace bench::bare {
namespace {

const std::string kList = " FROM " + Server::Table("Customers") + " c ";
const std::string kUp = R"( ORDER BY c."~k.LastName" NULLS FIRST, c."AcctNum" LIMIT )";
const std::string kDown = R"( ORDER BY c."~k.LastName" DESC NULLS LAST, c."AcctNum" DESC LIMIT )";
const std::string kKey = R"((c."~k.LastName", c."AcctNum"))";
// Behind all characters of keys that begin alike.
constexpr char kBeyond = '\x7f';

Rows Turned(const Rows& rows) {
  Rows turned;
  turned.columns = rows.columns;
  for (std::size_t i = rows.Count(); i-- > 0;)
    turned.cells.insert(turned.cells.end(), rows.cells.begin() + static_cast<std::ptrdiff_t>(i * rows.columns),
                        rows.cells.begin() + static_cast<std::ptrdiff_t>((i + 1) * rows.columns));
  return turned;
}

}  // namespace

Server::Server(const std::string& place) {
  const engine::postgres::Target target = engine::postgres::ParseTarget(place + "customer.zdb");
  const char* const names[] = {"host", "port", "dbname", "client_encoding", "options", nullptr};
  const char* const values[] = {target.hosts.c_str(), target.ports.c_str(), target.database.c_str(), "UTF8", "-c plan_cache_mode=force_generic_plan -c jit=off", nullptr};
  connection_ = PQconnectdbParams(names, values, 0);
  if (PQstatus(connection_) != CONNECTION_OK) throw std::runtime_error(PQerrorMessage(connection_));
  columns_ = Value(
      "SELECT string_agg('c.' || quote_ident(attname), ', ' ORDER BY attnum) FROM pg_attribute WHERE attrelid = '" + Table("Customers") +
      "'::regclass AND attnum > 0 AND NOT attisdropped AND attname !~ '^~'");
}

Server::~Server() { PQfinish(connection_); }

int Server::Backend() const { return PQbackendPID(connection_); }

Rows Server::Taken(PGresult* result) {
  const ExecStatusType state = PQresultStatus(result);
  if (state != PGRES_TUPLES_OK && state != PGRES_COMMAND_OK) {
    const std::string said = PQresultErrorMessage(result);
    PQclear(result);
    throw std::runtime_error(said);
  }
  Rows rows;
  const int columns = PQnfields(result);
  rows.columns = static_cast<std::size_t>(columns);
  const int count = PQntuples(result);
  rows.cells.reserve(rows.columns * static_cast<std::size_t>(count));
  for (int row = 0; row < count; ++row)
    for (int column = 0; column < columns; ++column) {
      if (PQgetisnull(result, row, column) != 0)
        rows.cells.emplace_back();
      else
        rows.cells.emplace_back(std::string(PQgetvalue(result, row, column), static_cast<std::size_t>(PQgetlength(result, row, column))));
    }
  PQclear(result);
  return rows;
}

Rows Server::Run(const std::string& sql, const std::vector<std::string>& parameters) {
  std::vector<const char*> values;
  for (const std::string& parameter : parameters) values.push_back(parameter.c_str());
  return Taken(PQexecParams(connection_, sql.c_str(), static_cast<int>(values.size()), nullptr, values.data(), nullptr, nullptr, 0));
}

// The statement's name.
std::string Server::Prepared(const std::string& sql, bool custom) {
  if (custom != custom_) {
    Run(std::string("SET plan_cache_mode = ") + (custom ? "force_custom_plan" : "force_generic_plan"));
    custom_ = custom;
  }
  auto known = std::ranges::find(prepared_, sql);
  const std::string name = "b" + std::to_string(known - prepared_.begin());
  if (known == prepared_.end()) {
    Taken(PQprepare(connection_, name.c_str(), sql.c_str(), 0, nullptr));
    prepared_.push_back(sql);
  }
  return name;
}

Rows Server::RunPrepared(const std::string& sql, const Cells& parameters, bool custom) {
  const std::string name = Prepared(sql, custom);
  std::vector<const char*> values;
  for (const auto& parameter : parameters) values.push_back(parameter ? parameter->c_str() : nullptr);
  return Taken(PQexecPrepared(connection_, name.c_str(), static_cast<int>(values.size()), values.data(), nullptr, nullptr, 0));
}

std::string Server::Value(const std::string& sql, const std::vector<std::string>& parameters) {
  const Rows rows = Run(sql, parameters);
  return rows.cells.empty() ? std::string() : rows.cells[0].value_or("");
}

std::int64_t Server::Stream(const std::string& sql) {
  if (PQsendQuery(connection_, sql.c_str()) == 0) throw std::runtime_error(PQerrorMessage(connection_));
  PQsetSingleRowMode(connection_);
  std::int64_t rows = 0;
  while (PGresult* const result = PQgetResult(connection_)) rows += PQntuples(result), Taken(result);
  return rows;
}

void Server::Each(const std::string& sql, const std::vector<std::string>& parameters, const Show& show) {
  const std::string name = Prepared(sql, false);
  std::vector<const char*> values;
  for (const std::string& parameter : parameters) values.push_back(parameter.c_str());
  if (PQsendQueryPrepared(connection_, name.c_str(), static_cast<int>(values.size()), values.data(), nullptr, nullptr, 0) == 0)
    throw std::runtime_error(PQerrorMessage(connection_));
  PQsetSingleRowMode(connection_);
  std::vector<std::string_view> row;
  while (PGresult* const result = PQgetResult(connection_)) {
    if (PQresultStatus(result) != PGRES_SINGLE_TUPLE) {
      Taken(result);
      continue;
    }
    row.clear();
    for (int i = 0; i < PQnfields(result); ++i)
      row.emplace_back(PQgetvalue(result, 0, i), static_cast<std::size_t>(PQgetlength(result, 0, i)));
    show(row);
    PQclear(result);
  }
}

Rows Server::First(int count) { return RunPrepared("SELECT " + columns_ + kList + kUp + std::to_string(count), {}); }

Rows Server::Last(int count) { return Turned(RunPrepared("SELECT " + columns_ + kList + kDown + std::to_string(count), {})); }

Rows Server::After(const Place& place, int count) {
  return RunPrepared("SELECT " + columns_ + kList + "WHERE " + kKey + " > ($1, $2::integer)" + kUp + std::to_string(count),
                     {place.key, std::to_string(place.account)});
}

Rows Server::From(const Place& place, int count) {
  return RunPrepared("SELECT " + columns_ + kList + "WHERE " + kKey + " >= ($1, $2::integer)" + kUp + std::to_string(count),
                     {place.key, std::to_string(place.account)});
}

Rows Server::Before(const Place& place, int count) {
  return Turned(RunPrepared("SELECT " + columns_ + kList + "WHERE " + kKey + " < ($1, $2::integer)" + kDown + std::to_string(count),
                            {place.key, std::to_string(place.account)}));
}

// The keys by the index alone, then the rows.
Rows Server::At(std::int64_t ordinal, int count) {
  const Rows place = RunPrepared(R"(SELECT c."~k.LastName", c."AcctNum")" + kList + kUp + "1 OFFSET $1", {std::to_string(ordinal - 1)});
  return After({place.At(0, 0).value_or(""), std::stoll(place.At(0, 1).value_or("0"))}, count);
}

Rows Server::FirstStarting(const std::string& start) {
  return RunPrepared("SELECT " + columns_ + R"(, c."~k.LastName")" + kList +
                         R"(WHERE c."~k.LastName" >= $1 AND c."~k.LastName" < $2 AND c."LastName" ILIKE $3)" + kUp + "1",
                     {start, start + kBeyond, start + '%'});
}

Rows Server::NextStarting(const Place& place, const std::string& start) {
  return RunPrepared("SELECT " + columns_ + R"(, c."~k.LastName")" + kList + "WHERE " + kKey +
                         R"( > ($1, $2::integer) AND c."~k.LastName" < $3 AND c."LastName" ILIKE $4)" + kUp + "1",
                     {place.key, std::to_string(place.account), start + kBeyond, start + '%'});
}

Rows Server::Seek(std::int64_t account) {
  return RunPrepared("SELECT " + columns_ + kList + R"(WHERE c."AcctNum" = $1)", {std::to_string(account)});
}

std::uint64_t SumOf(const Rows& rows) {
  std::uint64_t sum = 0;
  for (std::size_t i = 0; i < rows.Count(); ++i) sum = sum * 31 + std::stoull(rows.At(i, 0).value_or("0"));
  return sum;
}

double ProcessorOf(int process) {
  clockid_t clock{};
  timespec time{};
  if (clock_getcpuclockid(process, &clock) != 0 || clock_gettime(clock, &time) != 0) throw std::runtime_error("no processor time of a server's process");
  return static_cast<double>(time.tv_sec) * 1e6 + static_cast<double>(time.tv_nsec) / 1e3;
}

}  // namespace bench::bare
