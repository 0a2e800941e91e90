#pragma once

#include <QElapsedTimer>
#include <QPointer>
#include <QStringList>
#include <QTimer>
#include <QWidget>
#include <optional>
#include <vector>

#include "desktop/map/ground_layer.h"
#include "desktop/map/pin_layer.h"
#include "platform/controls/map/map_control.h"

class QPrinter;

namespace desktop {

class FindBox;
class Services;

/// The street map: the ground, the pins over it, and the user who looks around. Where it looks is its own; what stands on it, and
/// what it is asked to show, comes from the engine's scene. Without a scene it shows empty ground.
///
/// Left button: a rectangle to zoom into, or a click on a pin or a sign of many pins; middle button: pushes the ground. Wheel, arrows,
/// plus, minus, Home (whole), Backspace (back), the menu.
class MapView final : public QWidget {
  Q_OBJECT

 public:
  explicit MapView(QWidget* parent = nullptr);
  ~MapView() override;

  void Attach(platform::MapControl& control, Services& services);
  void Detach();

  // What the keys, the wheel and the menu do.
  void ZoomBy(int steps, const QPointF& at);
  void Whole();
  void Back();
  bool CanGoBack() const noexcept { return !backs_.empty(); }
  void CentreAt(const QPointF& at);
  void ShowLabels(bool labels);
  void OpenFindBox();
  void CopyPicture();
  void PrintPicture();
  /// The picture alone, by day, on the page of a printer.
  void PrintOn(QPrinter& printer);
  void OpenMenu(const QPointF& at, const QPoint& global);

  // For tests.
  const Sight& Seen() const noexcept { return sight_; }
  /// Whether all that is to be seen is drawn.
  bool Drawn() const { return !changed_ && ground_.Done(Frame()); }
  const GroundLayer& Ground() const noexcept { return ground_; }
  const PinLayer& Pins() const noexcept { return pins_; }
  bool LabelsShown() const noexcept { return labels_; }
  QString TipAt(const QPointF& at) const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  bool event(QEvent* event) override;

 private:
  enum class Way { Kept, Joined, None };  ///< whether a move can be gone back; joined with the one before when it comes at once

  platform::MapScene* Scene() const;
  GroundFrame Frame() const;
  MapLook Look() const;
  /// Takes over what has changed in the scene.
  void Sync();
  void TakeScene(platform::MapScene* scene);
  void Changed();
  void Slice();
  void GiveUpGround(const QString& why);
  void PaintAll(QPainter& painter, const GroundFrame& frame, const MapLook& look);
  void Go(const Sight& sight, Way way);
  /// Does the act from the event loop, after whatever runs now.
  void Later(std::function<void(platform::MapControl&)> act);
  void ClickAt(const QPointF& at);
  void ClickHeap(const PinLayer::Sign& sign);
  void ClickPin(std::size_t pin);
  void Find(const QString& address);
  QRectF Band() const { return QRectF(pressedAt_, movedTo_).normalized(); }
  const std::vector<platform::MapPin>& PinList() const;

  platform::MapControl* control_ = nullptr;
  Services* services_ = nullptr;
  PinLayer pins_;
  GroundLayer ground_{[this](const GroundFrame& seen, const GroundFrame& sheet) { return pins_.BoxesIn(sheet, seen, Look(), labels_); }};
  QStringList notices_;
  QString complaint_;
  Sight sight_;
  std::optional<platform::MapView> asked_;  ///< by the screen, last
  bool atAsked_ = true;                     ///< that is what is seen: it keeps its width when the window changes its size
  std::vector<Sight> backs_;
  QElapsedTimer sinceMove_;
  std::optional<PlanePoint> found_;  ///< the place of the address that the user has looked for
  QPointer<FindBox> findBox_;
  QTimer idle_;
  QElapsedTimer sincePaint_;
  Qt::MouseButton held_ = Qt::NoButton;
  QPointF pressedAt_;
  QPointF movedTo_;
  int wheel_ = 0;  ///< eighths of a degree that no step has used yet
  bool band_ = false;
  bool labels_ = true;
  bool changed_ = true;
};

}  // namespace desktop
