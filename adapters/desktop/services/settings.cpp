#include "desktop/services/settings.h"

#include <cmath>

#include "desktop/toolkit/toolkit.h"

namespace desktop {

namespace {

/// Field names may hold what an ini key may not.
QString Key(const QString& text) { return QString::fromLatin1(text.toUtf8().toPercentEncoding(" ()")); }

QString PrinterGroup(const QString& printer) { return "Printers/" + Key(printer); }

QString ListGroup(const QString& list) { return "Columns/" + Key(list); }

}  // namespace

Settings::Settings(const std::string& folder, const std::string& user) {
  if (folder.empty()) return;
  const QString name = user.empty() ? QStringLiteral("windows") : "windows-" + Key(ToShown(user));
  file_ = std::make_unique<QSettings>(ToShown(folder) + "/" + name + ".ini", QSettings::IniFormat);
}

std::optional<QByteArray> Settings::WindowPosition(const QString& screen) const {
  if (!file_ || !file_->contains("Windows/" + Key(screen))) return {};
  return file_->value("Windows/" + Key(screen)).toByteArray();
}

void Settings::KeepWindowPosition(const QString& screen, const QByteArray& position) {
  if (file_) file_->setValue("Windows/" + Key(screen), position);
}

std::optional<int> Settings::ColumnWidth(const QString& list, const QString& field) const {
  if (!file_) return {};
  bool number = false;
  const int width = file_->value(ListGroup(list) + "/Width/" + Key(field)).toInt(&number);
  return number && width > 0 ? std::optional(width) : std::nullopt;
}

void Settings::KeepColumnWidth(const QString& list, const QString& field, int width) {
  if (file_) file_->setValue(ListGroup(list) + "/Width/" + Key(field), width);
}

QStringList Settings::ColumnOrder(const QString& list) const {
  return file_ ? file_->value(ListGroup(list) + "/Order").toStringList() : QStringList{};
}

void Settings::KeepColumnOrder(const QString& list, const QStringList& fields) {
  if (file_) file_->setValue(ListGroup(list) + "/Order", fields);
}

QStringList Settings::HiddenColumns(const QString& list) const {
  return file_ ? file_->value(ListGroup(list) + "/Hidden").toStringList() : QStringList{};
}

void Settings::KeepHiddenColumns(const QString& list, const QStringList& fields) {
  if (file_) file_->setValue(ListGroup(list) + "/Hidden", fields);
}

void Settings::ForgetColumns(const QString& list) {
  if (file_) file_->remove(ListGroup(list));
}

PrinterAlignment Settings::AlignmentOf(const QString& printer) const {
  if (!file_) return {};
  const auto kept = [&](const char* key, double usual) {
    bool number = false;
    const double value = file_->value(PrinterGroup(printer) + key, usual).toDouble(&number);
    return number && std::isfinite(value) ? value : usual;
  };
  return {kept("/Right", 0), kept("/Down", 0), kept("/Scale", 1)};
}

void Settings::KeepAlignment(const QString& printer, const PrinterAlignment& alignment) {
  if (!file_) return;
  file_->setValue(PrinterGroup(printer) + "/Right", alignment.right);
  file_->setValue(PrinterGroup(printer) + "/Down", alignment.down);
  file_->setValue(PrinterGroup(printer) + "/Scale", alignment.scale);
}

}  // namespace desktop
