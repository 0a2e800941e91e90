#pragma once

#include <QHash>
#include <QPainter>
#include <QPixmap>
#include <cstdint>
#include <optional>
#include <vector>

#include "desktop/map/ground_layer.h"
#include "desktop/map/occupancy.h"
#include "desktop/map/pin_index.h"
#include "desktop/map/sign_pictures.h"

namespace desktop {

/// The pins as they are seen: alone with their label, or as one sign with a number while they stand too close together.
class PinLayer {
 public:
  /// Follows the list, which has changed. The list must stand while the layer is used.
  void Follow(const std::vector<platform::MapPin>* pins);
  void Paint(QPainter& painter, const GroundFrame& frame, const MapLook& look, bool labels);

  const PinIndex& Index() const noexcept { return index_; }
  /// A sign as it was painted last.
  struct Sign {
    PinIndex::Heap heap;
    QRectF box;
    bool IsHeap() const noexcept { return heap.count > 1; }
  };
  const std::vector<Sign>& Signs() const noexcept { return signs_; }
  /// Where signs, and their labels when those are shown, stand in a wider frame, grouped as in the one that is seen.
  std::vector<QRectF> BoxesIn(const GroundFrame& wider, const GroundFrame& seen, const MapLook& look, bool labels);
  /// The one under the pointer; the one that lies on top of others first.
  const Sign* SignAt(const QPointF& at) const;
  /// Its pins, by their order in the list, at most so many.
  std::vector<std::size_t> PinsOf(const Sign& sign, std::size_t most) const;
  /// Where a label was painted last, with its text.
  struct Label {
    QString text;
    QRectF box;
  };
  const std::vector<Label>& Labels() const noexcept { return labels_; }

 private:
  const platform::MapPin& PinOf(const Sign& sign) const { return (*pins_)[index_.PinAt(sign.heap.first)]; }
  /// How large the cells are, in pixels, of which the pins are one sign.
  double CellFor(const GroundFrame& frame);
  /// At most one more than `most`.
  std::vector<Sign> FindSigns(const GroundFrame& frame, double cell, std::size_t most = SIZE_MAX);
  /// Which stands at that place of the screen.
  Sign SignOf(const PinIndex::Heap& heap, const QPointF& at);
  const QPixmap& PictureOf(const std::string& file);
  static void PutInFrontLast(std::vector<Sign>& signs);
  std::vector<Label> PlaceLabels(const std::vector<Sign>& signs, const QSizeF& size);

  const std::vector<platform::MapPin>* pins_ = nullptr;
  PinIndex index_;
  std::vector<Sign> signs_;
  std::vector<Label> labels_;
  QHash<QString, QPixmap> pictures_;
  SignPictures drawn_;
};

}  // namespace desktop
