#pragma once

#include <utility>

#include "desktop/list/list_view.h"
#include "desktop/services/services.h"
#include "desktop/toolkit/toolkit.h"

namespace desktop {

/// What keys and clicks ask of the list's model; nothing while the list takes no input.
template <class Body>
void ListView::Act(Body&& body) {
  if (!grid_ || services_->PaintingOnly() || !grid_->EffectivelyEnabled()) return;
  Safely(Host(), [&] { std::forward<Body>(body)(*grid_); });
  if (grid_) Wish();
}

}  // namespace desktop
