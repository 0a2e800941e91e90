#pragma once

#include <QByteArray>
#include <QSettings>
#include <QString>
#include <memory>
#include <optional>
#include <string>

#include "desktop/desktop.h"

namespace desktop {

/// What the windows remember for one user: positions of windows, widths, order and hiding of list columns, by field name. Kept in one
/// ini file; without a folder nothing is kept.
class Settings {
 public:
  Settings(const std::string& folder, const std::string& user);

  std::optional<QByteArray> WindowPosition(const QString& screen) const;
  void KeepWindowPosition(const QString& screen, const QByteArray& position);

  /// Width in device-independent pixels.
  std::optional<int> ColumnWidth(const QString& list, const QString& field) const;
  void KeepColumnWidth(const QString& list, const QString& field, int width);
  /// Field names from left to right.
  QStringList ColumnOrder(const QString& list) const;
  void KeepColumnOrder(const QString& list, const QStringList& fields);
  /// Field names of the columns that the user does not want to see.
  QStringList HiddenColumns(const QString& list) const;
  void KeepHiddenColumns(const QString& list, const QStringList& fields);
  void ForgetColumns(const QString& list);

  /// How a printer's pages are moved (inches) and made larger (1: not), by the printer's name.
  PrinterAlignment AlignmentOf(const QString& printer) const;
  void KeepAlignment(const QString& printer, const PrinterAlignment& alignment);

 private:
  std::unique_ptr<QSettings> file_;
};

}  // namespace desktop
