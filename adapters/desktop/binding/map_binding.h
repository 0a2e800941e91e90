#pragma once

#include "desktop/binding/binding.h"
#include "desktop/map/map_view.h"

namespace desktop {

/// The map follows its engine's scene; the model says only whether it is there.
class MapBinding final : public TypedBinding<platform::MapControl, MapView> {
 public:
  MapBinding(platform::MapControl& control, MapView* widget, Services& services) : TypedBinding(control, widget) {
    widget->Attach(control, services);
  }
  void Drop() override {
    shown().Detach();
    TypedBinding::Drop();
  }
};

}  // namespace desktop
