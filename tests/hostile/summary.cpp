#include "hostile/summary.h"

#include <cstdio>
#include <vector>

namespace hostile {

void Tell(const Summary& summary, bool notes, double seconds) {
  if (notes)
    for (const auto& [note, count] : summary.notes) std::printf("%8d  %s\n", count, note.c_str());
  std::printf(
      "hostile yields: %d procedures (%d without a yield), %d yields, %d cases of which %d acts were refused; "
      "%d crashes, %zu cases with faults; %.0f s\n",
      summary.procedures, summary.withoutYields, summary.yields, summary.cases, summary.refused, summary.crashes, summary.faulty.size(),
      seconds);
}

}  // namespace hostile
