#include "records/list_search.h"

namespace orcussch {

void SearchList(platform::Application& App, const platform::RecordsetRef& rows, const ListSearch& search, const std::string& value,
                const std::string& title) {
  if (search.text.Text().empty()) return;
  App.MousePointer(platform::pointer::Hourglass);

  const std::string Criteria = "([" + search.frame.Tag() + "] Like '" + value + "*')";
  std::string Word;
  if (search.frame.Caption() == kSearchNext) {
    Word = "No more ";
    rows->FindNext(Criteria);
  } else {
    Word = "No ";
    rows->FindFirst(Criteria);
  }

  if (rows->NoMatch()) {
    App.MsgBox(Word + search.label.Caption() + "'s beginning with '" + search.text.Text() + "' can be found!",
               platform::box::Information + platform::box::OkOnly, title);
    search.frame.Caption(kSearchFirst);
  } else {
    search.frame.Caption(kSearchNext);
  }
  App.MousePointer(platform::pointer::Default);
}

}  // namespace orcussch
