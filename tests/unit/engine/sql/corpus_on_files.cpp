#include "unit/engine/sql/corpus_files.h"

namespace corpus {

const Place& OwnPlace() { return Files(); }

}  // namespace corpus
