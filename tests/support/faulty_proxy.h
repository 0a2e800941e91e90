#pragma once

#include <string>

#include "support/proxy_process.h"

/// A line between a desk and a database server that fails in the way and at the moment that a test wants.
class FaultyProxy {
 public:
  /// What happens to what the desk sends next; behind that the line is whole again, for new connections too.
  enum class Fault {
    None,
    CutBefore,    ///< the server gets nothing of it, and both sides are cut
    CutBehind,    ///< the server does it, but its answer is lost, and both sides are cut
    HalfOpen,     ///< the server gets all before the word that would commit it, and never hears that the desk was cut
    Silence,      ///< nothing comes through any more, on any connection, and nobody is told
    CutInAnswer,  ///< some of the answer comes, then both sides are cut
    AnswerLost,   ///< the server does it, but its answer is lost; what it says later comes through
  };

  /// `server`: the folder of the server's socket. Raises std::runtime_error when it can't listen.
  explicit FaultyProxy(const std::string& server, ProxyProcess::At at = ProxyProcess::At::Socket);
  ~FaultyProxy();
  FaultyProxy(const FaultyProxy&) = delete;
  FaultyProxy& operator=(const FaultyProxy&) = delete;

  /// How a path through it begins.
  std::string PathOf(const std::string& database) const { return process_.PathOf(database); }
  /// Arms the fault. None ends a silence.
  void Next(Fault fault) { Arm(fault, false); }
  /// The same for what next saves something.
  void NextSave(Fault fault) { Arm(fault, true); }
  /// Nobody can connect from now on, or again.
  void Refuse(bool refuse);

 private:
  struct Shared;
  void Arm(Fault fault, bool saves);

  Shared* shared_;  ///< with the process
  ProxyProcess process_;
};
