#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace hostile {

struct Options {
  int share = 1;  ///< one case in so many
  std::uint64_t seed = 1;
  std::string only;  ///< procedures whose names begin so
  std::string act;
  int yield = 0;             ///< 0: the chosen ones
  std::optional<bool> live;  ///< else a coin decides for each case
  bool no = false;           ///< questions are answered No at once
  int part = 0, parts = 1;   ///< every `parts`th procedure from `part` on
  bool server = false;       ///< the company lies on a server of the tests' own
  bool fork = true;          ///< each procedure in a process of its own
  bool list = false;         ///< tells the procedures and acts
  bool notes = false;        ///< tells what was reported how often
};

/// Reads the command line; what is wrong with it in `mistake`.
Options ReadOptions(int count, char** words, std::string& mistake);

extern const char* const kUsage;

}  // namespace hostile
