#include "records/list_search.h"

namespace orcussch {

void SearchList(platform::Application& app, const platform::RecordsetRef& rows, const ListSearch& search, const std::string& value,
                const std::string& title) {
  if (search.text.Text().empty()) return;
  app.MousePointer(platform::pointer::Hourglass);

  const std::string criterion = "([" + search.field + "] Like '" + value + "*')";
  std::string word;
  if (search.state.Caption() == kSearchNext) {
    word = "No more ";
    rows->FindNext(criterion);
  } else {
    word = "No ";
    rows->FindFirst(criterion);
  }

  if (rows->NoMatch()) {
    app.MsgBox(word + search.label.Caption() + "'s beginning with '" + search.text.Text() + "' can be found!",
               platform::box::Information + platform::box::OkOnly, title);
    search.state.Caption(kSearchFirst);
  } else {
    search.state.Caption(kSearchNext);
  }
  app.MousePointer(platform::pointer::Default);
}

}  // namespace orcussch
