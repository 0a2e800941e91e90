#include "server/desk.h"

#include "desk_folder.h"

namespace bench::branch {

void AtDesk(Company& company, const std::function<void(Desk&)>& work) {
  const DeskFolder folder(company.Place());
  CountedEngine counted = MakeCountedEngine();
  Visit visit;
  visit.folder = folder.Path();
  visit.engine = std::move(counted.engine);
  AtMainScreen(std::move(visit), [&](orcussch::frmCustMain& screen, WatchedFrontEnd&) {
    Desk desk(company, folder.Path(), screen, counted.trips);
    work(desk);
  });
}

}  // namespace bench::branch
