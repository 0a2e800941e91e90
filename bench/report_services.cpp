#include "report_services.h"

#include <memory>

#include "engine/engine.h"
#include "engine/text/like.h"
#include "engine/text/text_order.h"

namespace bench {

printing::DataServices ReportServices(const std::string& folder) {
  constexpr int kDay = 45000;
  printing::DataServices services;
  services.openReader = [] { return engine::MakeSnapshotReader(); };
  services.dataFolder = folder + "/data/orv1/";
  services.kindOf = [](const std::string&) { return printing::DataFileKind::Kept; };
  services.text = {engine::CompareText, [](const std::string& pattern) {
                     auto like = std::make_shared<engine::LikePattern>(pattern);
                     return [like](std::string_view text) { return like->Matches(text); };
                   }};
  services.today = platform::Date{kDay};
  return services;
}

}  // namespace bench
