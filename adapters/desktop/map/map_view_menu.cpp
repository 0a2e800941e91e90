#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>
#include <QPrintDialog>
#include <QPrinter>
#include <algorithm>

#include "desktop/map/find_box.h"
#include "desktop/map/furniture.h"
#include "desktop/map/map_view.h"
#include "desktop/services/services.h"
#include "desktop/toolkit/toolkit.h"

// The menu and what only it does: an address, a copy, a print; and the menu of pins that no zoom parts.
namespace desktop {

namespace {

constexpr std::size_t kMostInMenu = 30;
constexpr double kFoundUnitsPerPixel = 6;  // where house numbers' streets bear their names

/// A menu that goes with its map, whichever of the two is closed first.
QMenu* NewMenu(QWidget& map) {
  auto* menu = NewWidget<QMenu>(&map);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  return menu;
}

QString Entry(const QString& caption, const char* key) { return caption + '\t' + QString::fromLatin1(key); }

}  // namespace

void MapView::OpenMenu(const QPointF& at, const QPoint& global) {
  QMenu* menu = NewMenu(*this);
  const auto zoom = [this, at](int doublings) { ZoomBy(doublings * zoom::kPerDoubling, at); };
  menu->addAction(Entry(tr("Zoom In"), "+"), this, [zoom] { zoom(1); })->setEnabled(sight_.step > zoom::kNearest);
  menu->addAction(Entry(tr("Zoom Out"), "-"), this, [zoom] { zoom(-1); })->setEnabled(sight_.step < zoom::kFarthest);
  menu->addAction(Entry(tr("Back"), "Backspace"), this, [this] { Back(); })->setEnabled(CanGoBack());
  menu->addAction(Entry(tr("Whole Map"), "Home"), this, [this] { Whole(); });
  menu->addSeparator();
  menu->addAction(tr("Center Here"), this, [this, at] { CentreAt(at); });
  QAction* labels = menu->addAction(tr("Names at the Pins"), this, [this](bool on) { ShowLabels(on); });
  labels->setCheckable(true);
  labels->setChecked(labels_);
  menu->addSeparator();
  menu->addAction(tr("Find an Address..."), this, [this] { OpenFindBox(); })->setEnabled(Scene() != nullptr);
  menu->addSeparator();
  menu->addAction(tr("Copy Picture"), this, [this] { CopyPicture(); });
  menu->addAction(tr("Print..."), this, [this] { Later([this](platform::MapControl&) { PrintPicture(); }); });
  menu->popup(global);
}

/// Nearer, until its pins stand apart; those that no zoom parts are named in a menu.
void MapView::ClickHeap(const PinLayer::Sign& sign) {
  const PlaneBox bounds = pins_.Index().BoundsOf(sign.heap);
  const bool parts = std::max(bounds.width(), bounds.height()) > zoom::UnitsPerPixel(zoom::kNearest) * 4;
  if (parts && sight_.step > zoom::kNearest) {
    constexpr double kAround = 0.2;
    const double x = bounds.width() * kAround, y = bounds.height() * kAround;
    Sight sight = SightOver(bounds.adjusted(-x, -y, x, y), size());
    sight.step = std::min(sight.step, sight_.step - zoom::kPerDoubling);
    return Go(sight.Held(), Way::Kept);
  }
  QMenu* menu = NewMenu(*this);
  for (const std::size_t pin : pins_.PinsOf(sign, kMostInMenu)) {
    QString name = ToShown(PinList().at(pin).text).trimmed();
    menu->addAction(name.replace('&', "&&"), this, [this, pin] { ClickPin(pin); });
  }
  if (sign.heap.count > kMostInMenu) menu->addAction(tr("and %1 more").arg(sign.heap.count - kMostInMenu))->setEnabled(false);
  menu->popup(mapToGlobal(sign.box.center().toPoint()));
}

void MapView::OpenFindBox() {
  if (!findBox_) {
    findBox_ = NewWidget<FindBox>(this);
    findBox_->OnFind = [this](const QString& address) { Find(address); };
    findBox_->OnClosed = [this] {
      found_.reset();
      update();
    };
  }
  findBox_->Open();
}

void MapView::Find(const QString& address) {
  const QPointer<MapView> alive(this);
  Later([this, alive, text = ToUtf8(address)](platform::MapControl& control) {
    const std::optional<platform::MapPoint> place = control.UserFind(text);
    if (!alive || !findBox_) return;
    if (!place) return findBox_->Say(tr("No such address."));
    findBox_->Say("");
    found_ = ToPlane(*place);
    Sight sight{*found_, std::min(sight_.step, zoom::StepFor(kFoundUnitsPerPixel))};
    Go(sight.Held(), Way::Kept);
    update();
  });
}

void MapView::CopyPicture() {
  Sync();
  const GroundFrame frame = Frame();
  QImage picture((frame.size * frame.ratio).toSize(), QImage::Format_RGB32);
  picture.setDevicePixelRatio(frame.ratio);
  {
    QPainter painter(&picture);
    PaintAll(painter, frame, Look());
  }
  QGuiApplication::clipboard()->setImage(picture);
}

void MapView::PrintPicture() {
  QPrinter printer(QPrinter::HighResolution);
  printer.setPageOrientation(width() > height() ? QPageLayout::Landscape : QPageLayout::Portrait);
  const QPointer<QPrintDialog> dialog(NewWidget<QPrintDialog>(this, &printer));
  const bool wanted = dialog->exec() == QDialog::Accepted;
  if (!dialog) return;  // the window has gone, and the map with it
  dialog->deleteLater();
  if (wanted) PrintOn(printer);
}

void MapView::PrintOn(QPrinter& printer) {
  Sync();
  constexpr double kFineness = 3;  // of the print, by the screen's pixels
  const GroundFrame frame{sight_, QSizeF(size()), kFineness};
  MapLook paper = Look();
  paper.dark = false;
  PinLayer pins;
  pins.Follow(&PinList());
  GroundLayer ground([&](const GroundFrame& seen, const GroundFrame& sheet) { return pins.BoxesIn(sheet, seen, paper, labels_); });
  if (platform::MapScene* scene = Scene()) ground.Show(&scene->Ground(), paper);
  constexpr double kPieceMs = 1000;
  while (ground.Slice(frame, kPieceMs)) continue;
  QImage picture((frame.size * frame.ratio).toSize(), QImage::Format_RGB32);
  picture.setDevicePixelRatio(frame.ratio);
  {
    QPainter painter(&picture);
    ground.Paint(painter, frame);
    pins.Paint(painter, frame, paper, labels_);
    furniture::PaintScale(painter, frame, paper);
    furniture::PaintNotices(painter, frame, paper, notices_);
  }
  QPainter painter(&printer);
  const QRect page = painter.viewport();
  painter.drawImage(QRect(page.topLeft(), picture.size().scaled(page.size(), Qt::KeepAspectRatio)), picture);
}

}  // namespace desktop
