#include "desktop/services/display.h"

#include <QByteArray>
#include <QLibraryInfo>
#include <QString>

#ifdef __linux__
#include <dlfcn.h>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstring>
#include <filesystem>

#include "desktop/services/display_probe.h"
#endif

namespace desktop {

bool DisplayIsNamed() {
#if defined(__unix__) && !defined(__APPLE__)
  return !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") || !qEnvironmentVariableIsEmpty("DISPLAY") ||
         !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
#else
  return true;
#endif
}

#ifdef __linux__

namespace {

namespace fs = std::filesystem;

/// Some displays are far away, but one that does not answer at all would hold the host for ever.
constexpr std::chrono::seconds kPatience{30};

/// The platform that draws into memory opens always where it is installed; it is what tests and pictures use.
bool DrawsIntoMemory(const std::vector<std::string>& words) {
  for (const char* elsewhere : {"QT_PLUGIN_PATH", "QT_QPA_PLATFORM_PLUGIN_PATH"})
    if (qEnvironmentVariableIsSet(elsewhere)) return false;
  const bool told = words.size() == 3 && words[1] == "-platform" && words[2] == "offscreen";
  if (!told && (words.size() > 1 || qgetenv("QT_QPA_PLATFORM") != "offscreen")) return false;
  const QString plugins = QLibraryInfo::path(QLibraryInfo::PluginsPath);
  return ::access((plugins + "/platforms/libqoffscreen.so").toLocal8Bit().constData(), R_OK) == 0;
}

/// The folder of the library, or of the program, in which this code is.
fs::path OwnFolder() {
  Dl_info own{};
  std::error_code problem;
  if (::dladdr(reinterpret_cast<const void*>(&DisplayIsNamed), &own) != 0 && own.dli_fname != nullptr) {
    const std::string file = own.dli_fname;
    // A program's name is as it was called, perhaps without a folder.
    if (file.find(".so") != std::string::npos) {
      const fs::path found = fs::canonical(file, problem);
      if (!problem) return found.parent_path();
    }
  }
  return fs::read_symlink("/proc/self/exe", problem).parent_path();
}

/// Where it is beside a library or a program: as installed, and as built.
std::string ProbeProgram() {
  const fs::path own = OwnFolder();
  std::error_code ignored;
  for (const char* place : {"../libexec/orcussch", "../../libexec/orcussch", "../bin", "."}) {
    const fs::path file = (own / place / kProbeName).lexically_normal();
    if (fs::is_regular_file(file, ignored)) return file.string();
  }
  return "";
}

class Pipe {
 public:
  Pipe() { made_ = ::pipe2(ends_.data(), O_CLOEXEC) == 0; }
  ~Pipe() {
    CloseWriting();
    if (made_) ::close(ends_[0]);
  }
  Pipe(const Pipe&) = delete;
  Pipe& operator=(const Pipe&) = delete;
  bool Made() const { return made_; }
  int Reading() const { return ends_[0]; }
  int Writing() const { return ends_[1]; }
  void CloseWriting() {
    if (made_ && ends_[1] >= 0) ::close(ends_[1]);
    ends_[1] = -1;
  }

 private:
  std::array<int, 2> ends_{-1, -1};
  bool made_ = false;
};

/// Starts the program with the pipe as its output and no signal blocked or ignored, whatever the host does with them. 0 or an
/// error number. A thread that runs beside us in the host does no harm: nothing of ours runs between the fork and the program.
int Start(const std::string& program, std::vector<std::string> words, const Pipe& output, pid_t& process) {
  std::vector<char*> arguments;
  words[0] = program;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);

  posix_spawn_file_actions_t files;
  posix_spawnattr_t attributes;
  ::posix_spawn_file_actions_init(&files);
  ::posix_spawnattr_init(&attributes);
  ::posix_spawn_file_actions_adddup2(&files, output.Writing(), STDOUT_FILENO);
  ::posix_spawn_file_actions_addopen(&files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  ::posix_spawn_file_actions_addopen(&files, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  sigset_t none;
  sigset_t all;
  ::sigemptyset(&none);
  ::sigfillset(&all);
  ::posix_spawnattr_setsigmask(&attributes, &none);
  ::posix_spawnattr_setsigdefault(&attributes, &all);
  ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
  const int problem = ::posix_spawn(&process, program.c_str(), &files, &attributes, arguments.data(), environ);
  ::posix_spawnattr_destroy(&attributes);
  ::posix_spawn_file_actions_destroy(&files);
  return problem;
}

/// What the program says until it ends or closes its output; false when it takes longer than the patience.
bool Listen(int output, std::string& said) {
  const auto end = std::chrono::steady_clock::now() + kPatience;
  for (;;) {
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - std::chrono::steady_clock::now()).count();
    if (left <= 0) return false;
    pollfd waiting{output, POLLIN, 0};
    const int ready = ::poll(&waiting, 1, static_cast<int>(left));
    if (ready < 0 && errno != EINTR) return true;
    if (ready <= 0) continue;
    std::array<char, 1024> part{};
    const auto length = ::read(output, part.data(), part.size());
    if (length == 0 || (length < 0 && errno != EINTR)) return true;
    if (length > 0) said.append(part.data(), static_cast<std::size_t>(length));
  }
}

/// One line, "; " between what were lines.
std::string OneLine(const std::string& said) {
  const QStringList lines = QString::fromUtf8(said.c_str()).split('\n', Qt::SkipEmptyParts);
  return lines.join("; ").simplified().toStdString();
}

}  // namespace

std::string WhyNoDisplay(const std::vector<std::string>& words) {
  if (DrawsIntoMemory(words)) return "";
  const std::string program = ProbeProgram();
  if (program.empty()) return std::string("the program ") + kProbeName + " by which it is tried is missing";
  Pipe output;
  pid_t process = 0;
  const int problem = output.Made() ? Start(program, words, output, process) : errno;
  if (problem != 0) return std::string("it can't be tried: ") + std::strerror(problem);
  output.CloseWriting();
  std::string said;
  const bool answered = Listen(output.Reading(), said);
  if (!answered) ::kill(process, SIGKILL);
  // The host may reap our child before us or have it reaped unseen; what it said is enough.
  while (::waitpid(process, nullptr, 0) < 0 && errno == EINTR) {
  }
  if (!answered) return "it does not answer";
  if (said.ends_with(kProbeOpened)) return "";
  const std::string line = OneLine(said);
  return line.empty() ? "the toolkit does not say why" : line;
}

#else

std::string WhyNoDisplay(const std::vector<std::string>&) { return ""; }

#endif

}  // namespace desktop
