#include "engine/store/postgres/link/target.h"

#include <algorithm>
#include <vector>

#include "engine/errors.h"
#include "engine/store/postgres/wording/names.h"
#include "platform/services/data_path.h"

namespace engine::postgres {
namespace {

// Nothing of the value is repeated: it may be a password.
platform::Error TellsTooMuch() {
  return {errors::InvalidPath("").Number(),
          "A server's path names a server, a database, a company and a file, and nothing else.  Users, passwords and options belong into "
          "the client library's service and password files."};
}

std::vector<std::string> SplitAt(std::string_view text, char separator) {
  std::vector<std::string> pieces;
  for (std::size_t at = 0;;) {
    const std::size_t end = std::min(text.find(separator, at), text.size());
    pieces.emplace_back(text.substr(at, end - at));
    if (end == text.size()) return pieces;
    at = end + 1;
  }
}

int DigitOf(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

// "%2Frun" is "/run": so a folder with a socket can stand between slashes.
bool Unescape(std::string& text) {
  std::string plain;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] != '%') {
      plain += text[at];
      continue;
    }
    const int high = at + 2 < text.size() ? DigitOf(text[at + 1]) : -1;
    const int low = at + 2 < text.size() ? DigitOf(text[at + 2]) : -1;
    if (high < 0 || low < 0 || high + low == 0) return false;
    plain += static_cast<char>(high * 16 + low);
    at += 2;
  }
  text = std::move(plain);
  return true;
}

bool IsPort(std::string_view text) {
  return text.size() <= 5 && std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

// What stands behind a colon and is no port, or holds the sign that ends a password: a user with a password, cut or written with escapes.
bool MayTellASecret(const std::string& port, const std::string& host) {
  return !port.empty() ? !IsPort(port) : host.find('@') != std::string::npos;
}

// "host", "host:port" or "[address]:port".
bool AddHost(Target& target, const std::string& text) {
  std::string host = text;
  std::string port;
  const std::size_t bracket = text.starts_with('[') ? text.find(']') : 0;
  if (bracket == std::string::npos) return false;
  if (const std::size_t colon = text.find(':', bracket); colon != std::string::npos) {
    host = text.substr(0, colon);
    port = text.substr(colon + 1);
    if (MayTellASecret(port, host)) throw TellsTooMuch();
    if (port.empty()) return false;
  }
  if (host.starts_with('[')) {
    if (!host.ends_with(']')) return false;
    host = host.substr(1, host.size() - 2);
  }
  if (!Unescape(host) || host.empty() || host.find(',') != std::string::npos) return false;
  if (MayTellASecret("", host)) throw TellsTooMuch();
  const bool first = target.hosts.empty();
  target.hosts += (first ? "" : ",") + host;
  target.ports += (first ? "" : ",") + port;
  return true;
}

// Schemas are in small letters, so that who writes a name by hand need not quote it.
std::string SchemaOf(std::string_view company, std::string_view file) {
  if (const std::size_t dot = file.rfind('.'); dot != std::string_view::npos) file = file.substr(0, dot);
  std::string name;
  if (!company.empty()) name.append(company) += '_';
  name.append(file);
  for (char& c : name)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 'a' - 'A');
  return name;
}

}  // namespace

Target ParseTarget(std::string_view path) {
  if (path.find_first_of("@?#") != std::string_view::npos) throw TellsTooMuch();
  const platform::Error wrong = errors::InvalidPath(path);
  if (!platform::IsServerPath(path)) throw wrong;
  std::vector<std::string> pieces = SplitAt(path.substr(platform::kServerScheme.size()), '/');

  // First of all, since what is wrong with the rest is told with the whole path.
  Target target;
  for (const std::string& host : SplitAt(pieces[0], ','))
    if (!AddHost(target, host)) throw wrong;
  if (pieces.size() != 3 && pieces.size() != 4) throw wrong;
  for (std::size_t i = 1; i < pieces.size(); ++i)
    if (!Unescape(pieces[i]) || pieces[i].empty()) throw wrong;
  target.database = pieces[1];
  target.schema = SchemaOf(pieces.size() == 4 ? pieces[2] : "", pieces.back());
  const bool own = target.schema.starts_with("pg_") || target.schema == "information_schema" || target.schema.empty();
  if (own || target.schema.size() > kLongestName || target.database.size() > kLongestName) throw wrong;
  return target;
}

}  // namespace engine::postgres
