#include "desktop/map/map_view.h"

#include <QPaintEvent>
#include <QPainter>
#include <utility>

#include "desktop/look/theme.h"
#include "desktop/map/find_box.h"
#include "desktop/map/furniture.h"
#include "desktop/services/services.h"
#include "desktop/toolkit/toolkit.h"

// What is seen: following the scene, drawing in idle time, painting.
namespace desktop {

namespace {

constexpr double kSliceMs = 8;
constexpr int kPaintingPauseMs = 30;   // while only painting is served
constexpr int kBetweenPaintsMs = 40;   // while tiles come in
constexpr int kJoinMs = 900;           // moves that come faster are one way back
constexpr std::size_t kMostBacks = 60;

}  // namespace

MapView::MapView(QWidget* parent) : QWidget(parent) {
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setAttribute(Qt::WA_OpaquePaintEvent);
  idle_.setSingleShot(true);
  connect(&idle_, &QTimer::timeout, this, [this] { Slice(); });
  sincePaint_.start();
  sinceMove_.start();
}

MapView::~MapView() { Detach(); }

void MapView::Attach(platform::MapControl& control, Services& services) {
  control_ = &control;
  services_ = &services;
  if (platform::MapScene* scene = Scene()) scene->OnChanged = [this] { Changed(); };
}

void MapView::Detach() {
  if (platform::MapScene* scene = Scene()) scene->OnChanged = nullptr;
  control_ = nullptr;
  idle_.stop();
  pins_.Follow(nullptr);
  ground_.Show(nullptr, Look());
}

platform::MapScene* MapView::Scene() const { return control_ != nullptr ? control_->Scene() : nullptr; }

const std::vector<platform::MapPin>& MapView::PinList() const {
  static const std::vector<platform::MapPin> none;
  const platform::MapScene* scene = Scene();
  return scene != nullptr ? scene->Pins() : none;
}

GroundFrame MapView::Frame() const { return {sight_, QSizeF(size()), devicePixelRatioF()}; }

MapLook MapView::Look() const { return {theme::IsDark(palette()), font()}; }

void MapView::Changed() {
  if (changed_) return;
  changed_ = true;
  update();
}

void MapView::Sync() {
  if (!std::exchange(changed_, false)) return;
  try {
    TakeScene(Scene());
  } catch (const std::exception& failure) {
    GiveUpGround(QString::fromUtf8(failure.what()));
  }
}

void MapView::TakeScene(platform::MapScene* scene) {
  pins_.Follow(scene != nullptr ? &scene->Pins() : nullptr);
  ground_.PlaceNamesAnew();
  setAccessibleDescription(tr("%n customers", nullptr, static_cast<int>(pins_.Index().Count())));
  if (scene == nullptr) {
    ground_.Show(nullptr, Look());
    if (atAsked_) sight_ = WholeCountry(size());
    return;
  }
  if (scene->View() != asked_ || (atAsked_ && !asked_)) {
    asked_ = scene->View();
    atAsked_ = true;
    found_.reset();
    backs_.clear();
    sight_ = asked_ ? SightOf(*asked_, size()) : WholeCountry(size());
  }
  ground_.Show(&scene->Ground(), Look());
  complaint_ = ToShown(scene->Ground().Complaint());
  notices_.clear();
  for (const std::string& notice : scene->Ground().Notices()) notices_.append(ToShown(notice));
}

/// The pins are worth more than the ground: they stay, and the user reads why nothing lies below them.
void MapView::GiveUpGround(const QString& why) {
  ground_.Show(nullptr, Look());
  complaint_ = tr("The street map can't be read: %1").arg(why);
  if (control_ != nullptr) control_->Owner().Host().Log(platform::LogLevel::Failure, ToUtf8("map: " + why));
  update();
}

void MapView::Slice() {
  if (control_ == nullptr || !isVisible()) return;
  if (services_->PaintingOnly()) return idle_.start(kPaintingPauseMs);
  bool left = false;
  try {
    left = ground_.Slice(Frame(), kSliceMs);
  } catch (const std::exception& failure) {
    return GiveUpGround(QString::fromUtf8(failure.what()));
  }
  if (left) idle_.start(0);
  // Reading may have found a file that is broken.
  if (platform::MapScene* scene = left ? nullptr : Scene()) complaint_ = ToShown(scene->Ground().Complaint());
  if (!left || sincePaint_.elapsed() >= kBetweenPaintsMs) update();
}

void MapView::paintEvent(QPaintEvent*) {
  Sync();
  QPainter painter(this);
  const GroundFrame frame = Frame();
  const MapLook look = Look();
  PaintAll(painter, frame, look);
  if (band_) furniture::PaintBand(painter, Band(), look);
  if (hasFocus()) furniture::PaintFocus(painter, frame, look);
  sincePaint_.restart();
  if (control_ != nullptr && !idle_.isActive() && !ground_.Done(frame)) idle_.start(0);
}

void MapView::PaintAll(QPainter& painter, const GroundFrame& frame, const MapLook& look) {
  ground_.Paint(painter, frame);
  pins_.Paint(painter, frame, look, labels_);
  if (found_) {
    constexpr double kRing = 9;
    painter.setPen(QPen(QColor("#d9363e"), 2.5));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(frame.sight.ToScreen(NearestTurn(*found_, frame.sight.middle), frame.size), kRing, kRing);
  }
  furniture::PaintScale(painter, frame, look);
  furniture::PaintNotices(painter, frame, look, notices_);
  furniture::PaintComplaint(painter, frame, look, complaint_);
}

void MapView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  if (atAsked_ && !changed_) sight_ = asked_ ? SightOf(*asked_, size()) : WholeCountry(size());
}

void MapView::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) Changed();
}

void MapView::Go(const Sight& sight, Way way) {
  Sync();
  if (sight == sight_) return;
  const bool joined = way == Way::Joined && sinceMove_.elapsed() < kJoinMs && !backs_.empty();
  if (way != Way::None && !joined) backs_.push_back(sight_);
  if (backs_.size() > kMostBacks) backs_.erase(backs_.begin());
  sinceMove_.restart();
  sight_ = sight;
  atAsked_ = false;
  update();
}

void MapView::ZoomBy(int steps, const QPointF& at) {
  Sync();
  Go(sight_.Zoomed(sight_.step - steps, at, size()), Way::Joined);
}

/// All pins where they stand apart, else what the screen has asked for.
void MapView::Whole() {
  Sync();
  const PlaneBox all = pins_.Index().Bounds();
  if (all.width() > 0 || all.height() > 0) {
    constexpr double kAround = 0.08;
    const double x = all.width() * kAround + 1, y = all.height() * kAround + 1;
    Go(SightOver(all.adjusted(-x, -y, x, y), size()), Way::Kept);
  } else {
    Go(asked_ ? SightOf(*asked_, size()) : WholeCountry(size()), Way::Kept);
  }
}

void MapView::Back() {
  if (backs_.empty()) return;
  const Sight before = backs_.back();
  backs_.pop_back();
  Go(before, Way::None);
}

void MapView::CentreAt(const QPointF& at) {
  Sync();
  Sight sight = sight_;
  sight.middle = sight_.ToPlane(at, size());
  Go(sight.Held(), Way::Kept);
}

void MapView::ShowLabels(bool labels) {
  labels_ = labels;
  ground_.PlaceNamesAnew();
  update();
}

}  // namespace desktop
