#include "support/test_server.h"

#include <pwd.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <thread>
#include <vector>

namespace {

using Words = std::vector<std::string>;

constexpr const char* kBinaries = ORCUSSCH_SERVER_BINARIES;
constexpr const char* kServerUser = "postgres";

bool IsRoot() { return ::geteuid() == 0; }

// The server refuses to run as root. Whatever is started ends with this program.
Words AsServer(const std::string& program, const Words& arguments) {
  Words words{"setpriv", "--pdeathsig", "INT"};
  if (IsRoot()) words.insert(words.end(), {"--reuid", kServerUser, "--regid", kServerUser, "--clear-groups"});
  words.push_back(std::string(kBinaries) + '/' + program);
  words.insert(words.end(), arguments.begin(), arguments.end());
  return words;
}

pid_t Spawn(const Words& words, const std::string& log) {
  const pid_t child = ::fork();
  if (child != 0) return child;
  if (std::freopen(log.c_str(), "a", stdout) == nullptr || ::dup2(1, 2) < 0) ::_exit(126);
  if (std::freopen("/dev/null", "r", stdin) == nullptr || ::chdir("/") != 0) ::_exit(126);
  std::vector<char*> arguments;
  for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  ::execvp(arguments[0], arguments.data());
  ::_exit(127);
}

std::string Content(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

std::string Quoted(const std::string& text) {
  std::string quoted = "'";
  for (const char c : text) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + "'";
}

std::string OutputOf(const std::string& command) {
  std::string output;
  FILE* const pipe = ::popen(command.c_str(), "r");
  if (pipe == nullptr) return output;
  std::array<char, 4096> buffer{};
  for (std::size_t read = 0; (read = std::fread(buffer.data(), 1, buffer.size(), pipe)) > 0;) output.append(buffer.data(), read);
  ::pclose(pipe);
  return output;
}

}  // namespace

TestServer& TestServer::Shared() {
  static TestServer server;
  return server;
}

TestServer::TestServer() {
  std::string folder = (std::filesystem::temp_directory_path() / "suite-server-XXXXXX").string();
  if (::mkdtemp(folder.data()) == nullptr) throw std::runtime_error("no temporary folder");
  folder_ = folder;
  socket_ = folder_ + "/socket";
  std::filesystem::create_directory(socket_);
  if (IsRoot()) {
    const passwd* user = ::getpwnam(kServerUser);
    if (user == nullptr) throw std::runtime_error("The server's package is not installed.");
    for (const std::string& path : {folder_, socket_})
      if (::chown(path.c_str(), user->pw_uid, user->pw_gid) != 0) throw std::runtime_error("no folder for the server");
  }
  const std::string log = folder_ + "/initdb.log";
  const pid_t made = Spawn(AsServer("initdb", {"-D", folder_ + "/data", "-A", "trust", "-U", "office", "-E", "UTF8", "--locale=C", "--no-sync"}), log);
  int status = 0;
  ::waitpid(made, &status, 0);
  if (status != 0) throw std::runtime_error("initdb: " + Content(log));
  Start();
}

TestServer::~TestServer() {
  if (server_ != 0) {
    ::kill(server_, SIGQUIT);
    ::waitpid(server_, nullptr, 0);
  }
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

void TestServer::Start() {
  const std::string log = folder_ + "/server.log";
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
  while (!Starts(log, end)) {
    // Of one that was killed the last process may hold its memory for a moment.
    const std::string told = Content(log);
    if (told.find("is still in use") == std::string::npos || std::chrono::steady_clock::now() > end) throw std::runtime_error("postgres: " + told);
    std::filesystem::remove(log);
  }
}

bool TestServer::Starts(const std::string& log, std::chrono::steady_clock::time_point end) {
  server_ = Spawn(AsServer("postgres", {"-D", folder_ + "/data",
                                        "-k", socket_,
                                        "-c", "listen_addresses=",
                                        "-c", "fsync=off",
                                        "-c", "full_page_writes=off",
                                        "-c", "autovacuum=off",
                                        "-c", "wal_level=minimal",
                                        "-c", "max_wal_senders=0",
                                        "-c", "shared_buffers=32MB",
                                        "-c", "max_connections=40"}),
                  log);
  while (Run("postgres", "SELECT 'ready'") != "ready\n") {
    if (::waitpid(server_, nullptr, WNOHANG) == server_ || std::chrono::steady_clock::now() > end) {
      server_ = 0;
      return false;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  return true;
}

void TestServer::AddRoleWithPassword(const std::string& role, const std::string& password) {
  Run("postgres", "CREATE ROLE " + role + " LOGIN PASSWORD '" + password + "'");
  const std::string rules = folder_ + "/data/pg_hba.conf";
  const std::string before = Content(rules);
  std::ofstream(rules, std::ios::binary) << "local all " << role << " scram-sha-256\n" << before;
  Run("postgres", "SELECT pg_reload_conf()");
}

void TestServer::End(int signal) {
  // Its processes outlive one that is killed, and would go on answering for a moment.
  const std::string process = "/proc/" + std::to_string(server_);
  std::istringstream children(signal == SIGKILL ? Content(process + "/task/" + std::to_string(server_) + "/children") : std::string());
  ::kill(server_, signal);
  for (pid_t child = 0; children >> child;) {
    ::kill(child, signal);
    while (!Content("/proc/" + std::to_string(child) + "/cmdline").empty()) std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  ::waitpid(server_, nullptr, 0);
  server_ = 0;
}

std::string TestServer::PathOf(const std::string& database) const {
  std::string host;
  for (const char c : socket_) host += c == '/' ? std::string("%2F") : std::string(1, c);
  return "postgresql://" + host + '/' + database + '/';
}

// The words with which one of the server's tools is called for a database.
std::string TestServer::Tool(const std::string& name, const std::string& database) const {
  return std::string(kBinaries) + '/' + name + " -h " + Quoted(socket_) + " -U office -d " + Quoted(database);
}

std::string TestServer::Run(const std::string& database, const std::string& sql) const {
  return OutputOf(Tool("psql", database) + " -X -q -A -t -v ON_ERROR_STOP=1 -c " + Quoted(sql) + " 2>&1");
}

std::string TestServer::RunFile(const std::string& database, const std::string& file, const std::vector<std::string>& variables) const {
  std::string words;
  for (const std::string& variable : variables) words += " -v " + Quoted(variable);
  return OutputOf(Tool("psql", database) + " -X -q -A -t" + words + " -f " + Quoted(file) + " 2>&1");
}

std::string TestServer::CopyByDump(const std::string& from, const std::string& to) const {
  return OutputOf('(' + Tool("pg_dump", from) + " | " + Tool("psql", to) + " -X -q -A -t -v ON_ERROR_STOP=1 -o /dev/null) 2>&1");
}

void TestServer::CreateDatabase(const std::string& name, const std::string& like) {
  const std::string said = Run("postgres", "CREATE DATABASE \"" + name + "\" TEMPLATE \"" + like + "\" STRATEGY file_copy");
  if (!said.empty()) throw std::runtime_error(said);
}

void TestServer::DropDatabase(const std::string& name) { Run("postgres", "DROP DATABASE IF EXISTS \"" + name + "\" WITH (FORCE)"); }
