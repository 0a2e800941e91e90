#include "records/find.h"

namespace orcussch {

Search Find(ResumeNext& on, const platform::RecordsetRef& Table, const char* Index, const std::function<Keys()>& keys) {
  Search result = Search::Failed;
  on([&] {
    Table->SetIndex(Index);
    Table->Seek("=", keys());
    result = Table->NoMatch() ? Search::Missing : Search::Found;
  });
  return result;
}

}  // namespace orcussch
