#pragma once

#include "desktop/binding/binding.h"
#include "desktop/list/list_view.h"

namespace desktop {

class ListBinding final : public TypedBinding<platform::Grid, ListView> {
 public:
  ListBinding(platform::Grid& control, ListView* widget, Services& services);
  void ShowAll() override;
  void Show(platform::Aspect aspect) override;
  void Drop() override;
  bool IdleSlice() override { return shown().IdleSlice(); }
};

}  // namespace desktop
