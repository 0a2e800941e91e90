#include "engine/store/postgres/link/connect.h"

#include <libpq-fe.h>
#include <poll.h>

#include <algorithm>
#include <array>
#include <memory>
#include <string_view>
#include <vector>

#include "engine/errors.h"
#include "engine/store/postgres/wording/names.h"

namespace engine::postgres {
namespace {

struct CloseConnection {
  void operator()(PGconn* connection) const noexcept { PQfinish(connection); }
};
using Opened = std::unique_ptr<PGconn, CloseConnection>;

// Blanks part the options; a backslash takes that from them.
std::string AsOneOption(std::string_view text) {
  std::string option;
  for (const char c : text) {
    if (c == ' ' || c == '\\') option += '\\';
    option += c;
  }
  return option;
}

std::string SessionOptions(const Target& target, const Patience& patience) {
  // Filters are planned with their values: a plan for any value may look at all rows. Names without a schema are the server's own, and
  // behind these the functions of the first file: all files of a database have the same ones. A look at a long table begins where the table
  // does, not where somebody else's is just then: how far its first rows reach tells how many there are.
  return "-c lock_timeout=" + std::to_string(patience.lock) + " -c search_path=pg_catalog," + AsOneOption(QuoteName(target.schema)) +
         " -c plan_cache_mode=force_custom_plan -c jit=off -c synchronize_seqscans=off -c client_min_messages=warning"
         " -c default_transaction_isolation=read\\ committed -c DateStyle=ISO -c IntervalStyle=postgres -c bytea_output=hex";
}

// What keeps a line open on which nothing goes, and finds a dead one: a firewall forgets a line that is still for some minutes and tells
// nobody. Signs of life every minute keep it; half a minute without an answer to one, or to what was sent, ends the connection.
struct Setting {
  const char* name;
  const char* value;
};
constexpr std::array<Setting, 4> kSignsOfLife{
    {{"keepalives_idle", "60"}, {"keepalives_interval", "10"}, {"keepalives_count", "3"}, {"tcp_user_timeout", "30000"}}};

struct FreeDefaults {
  void operator()(PQconninfoOption* options) const noexcept { PQconninfoFree(options); }
};

// Those that the desk's service file leaves open.
std::vector<Setting> SettingsLeftOpen() {
  const std::unique_ptr<PQconninfoOption, FreeDefaults> defaults(PQconndefaults());
  std::vector<Setting> open;
  for (const Setting& setting : kSignsOfLife) {
    bool named = false;
    for (const PQconninfoOption* option = defaults.get(); option != nullptr && option->keyword != nullptr; ++option)
      named = named || (option->val != nullptr && std::string_view(option->keyword) == setting.name);
    if (!named) open.push_back(setting);
  }
  return open;
}

// One of the target's hosts, with its port.
struct Host {
  std::string name;
  std::string port;
};

std::vector<Host> HostsOf(const Target& target) {
  std::vector<Host> hosts;
  std::size_t name = 0;
  std::size_t port = 0;
  while (name <= target.hosts.size()) {
    const std::size_t nameEnd = std::min(target.hosts.find(',', name), target.hosts.size());
    const std::size_t portEnd = std::min(target.ports.find(',', port), target.ports.size());
    hosts.push_back({target.hosts.substr(name, nameEnd - name), target.ports.substr(port, portEnd - port)});
    name = nameEnd + 1;
    port = std::min(portEnd + 1, target.ports.size());
  }
  return hosts;
}

Opened Start(const Host& host, const Target& target, const Patience& patience, const std::string& name, bool oneOfMany) {
  const std::string options = SessionOptions(target, patience);
  // Of several servers one takes writes.
  const char* const attributes = oneOfMany ? "read-write" : "any";
  std::vector<const char*> names{"host", "port", "dbname", "options", "client_encoding", "application_name", "target_session_attrs"};
  std::vector<const char*> values{
      host.name.c_str(), host.port.c_str(), target.database.c_str(), options.c_str(), "UTF8", name.c_str(), attributes};
  for (const Setting& setting : SettingsLeftOpen()) {
    names.push_back(setting.name);
    values.push_back(setting.value);
  }
  names.push_back(nullptr);
  values.push_back(nullptr);
  return Opened(PQconnectStartParams(names.data(), values.data(), 0));
}

bool IsReady(PGconn* connection, PostgresPollingStatusType state) {
  pollfd asked{PQsocket(connection), static_cast<short>(state == PGRES_POLLING_READING ? POLLIN : POLLOUT), 0};
  return ::poll(&asked, 1, 0) != 0;
}

// The connection once it is made; nothing, with what was wrong, when it isn't. A failure that has a state tells more than another.
Opened Attempt(Opened connection, std::chrono::milliseconds time, const std::function<void()>& serveOthers, Failure& failure) {
  PGconn* const one = connection.get();
  // A failed attempt has no result to ask for its state: it must stand in the message.
  PQsetErrorVerbosity(one, PQERRORS_SQLSTATE);
  PQsetNoticeProcessor(one, [](void*, const char*) {}, nullptr);
  const auto end = std::chrono::steady_clock::now() + time;
  PostgresPollingStatusType state = PQstatus(one) == CONNECTION_BAD ? PGRES_POLLING_FAILED : PGRES_POLLING_WRITING;
  while (state == PGRES_POLLING_READING || state == PGRES_POLLING_WRITING) {
    if (std::chrono::steady_clock::now() >= end) return nullptr;
    WaitForSocket(one, state == PGRES_POLLING_READING, state == PGRES_POLLING_WRITING);
    if (IsReady(one, state))
      state = PQconnectPoll(one);
    else
      serveOthers();
  }
  if (state == PGRES_POLLING_OK) return connection;
  const std::string told = StateInMessage(PQerrorMessage(one));
  if (failure.state.empty()) failure = {told, PQerrorMessage(one), "", true};
  return nullptr;
}

}  // namespace

void WaitForSocket(PGconn* connection, bool toRead, bool toWrite) {
  constexpr int kStep = 15;  // milliseconds
  pollfd asked{PQsocket(connection), static_cast<short>((toRead ? POLLIN : 0) | (toWrite ? POLLOUT : 0)), 0};
  ::poll(&asked, 1, kStep);
}

void Pause() {
  constexpr int kStep = 15;  // milliseconds
  ::poll(nullptr, 0, kStep);
}

PGconn* Connect(const Target& target, const Patience& patience, const std::string& name, const std::function<void()>& serveOthers, const std::string& asked) {
  const std::vector<Host> hosts = HostsOf(target);
  // The client library's own walk over the hosts would spend all the time on one that never answers.
  const auto share = std::chrono::milliseconds(patience.connect) / hosts.size();
  Failure failure;
  for (const Host& host : hosts) {
    Opened connection = Start(host, target, patience, name, hosts.size() > 1);
    if (connection == nullptr) throw errors::DiskOrNetwork();  // the client library isn't there
    auto opened = Attempt(std::move(connection), share, serveOthers, failure);
    if (opened == nullptr) continue;
    PQsetErrorVerbosity(opened.get(), PQERRORS_DEFAULT);
    PQsetnonblocking(opened.get(), 1);
    PQenterPipelineMode(opened.get());
    return opened.release();
  }
  throw ConnectError(failure, asked);
}

}  // namespace engine::postgres
