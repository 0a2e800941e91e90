#pragma once

#include <string>

#include "platform/controls/label.h"
#include "platform/controls/text_box.h"
#include "platform/data/data.h"
#include "platform/host/application.h"

namespace orcussch {

/// The state of a search, as it stands in the caption of what holds the search box.
inline constexpr const char* kSearchFirst = "Search First";
inline constexpr const char* kSearchNext = "Search Next";

/// What a list is searched with.
struct ListSearch {
  const std::string& field;
  platform::CaptionControl& state;  ///< its caption tells whether the next step is the first one
  platform::CaptionControl& label;  ///< its caption is what a box calls the rows
  platform::TextBox& text;
};

/// One step of a search by the beginning of a field: the next row that fits becomes current, else a box under the title says so and
/// the next step begins anew. `value` is what the field is compared with. An empty search text does nothing.
void SearchList(platform::Application& app, const platform::RecordsetRef& rows, const ListSearch& search, const std::string& value,
                const std::string& title);

}  // namespace orcussch
