#pragma once

#include <QLabel>
#include <QMainWindow>
#include <QPointer>

#include "desktop/window/filter_badge.h"
#include "platform/controls/form/form.h"

namespace platform {
class CardScreen;
class FilteredScreen;
class Grid;
}  // namespace platform

namespace desktop {

class ListView;
class Services;

/// What a window adds to its screen's own controls, where its layout asks for it: a badge that says what the open card is for
/// (label "modeBadge"; labels with the property "ofOwner" give way while a new owner is added), one that says what the list is
/// narrowed to (label "filterBadge"), buttons that press a toolbar key (property "presses"), the place of the current row at the end
/// of the status bar, commands behind those of a menu (the menu bar's property "behindMenus": "mnuEdit miTypedBack"), the export of the
/// list behind the file menu, and the Help menu.
class WindowExtras {
 public:
  WindowExtras(QMainWindow& window, platform::Form& form, Services& services);

  /// A control of the screen has changed.
  void Changed(const platform::Control& control, platform::Aspect aspect);
  /// The lists have no idle work left: the place of the current row can be told.
  void Settled();

 private:
  void ConnectButtons();
  void AddMenus();
  void AddExport();
  ListView* ShownListView() const;
  void ShowMode();
  void ShowFilter();
  QString Place() const;
  platform::Grid* ShownList() const;

  QMainWindow& window_;
  platform::Form& form_;
  Services& services_;
  const platform::CardScreen* cards_;
  const platform::FilteredScreen* filtered_;
  QPointer<QLabel> badge_;
  QPointer<FilterBadge> filterBadge_;
  QPointer<QLabel> place_;
  bool placeIsOld_ = true;
};

}  // namespace desktop
