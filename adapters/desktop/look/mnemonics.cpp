#include "desktop/look/mnemonics.h"

namespace desktop {

QString WithMnemonic(const QString& caption, const QWidget& widget) {
  const QString letter = widget.property("mnemonic").toString();
  QString shown = caption;
  shown.replace('&', QStringLiteral("&&"));
  const qsizetype at = letter.isEmpty() ? -1 : shown.indexOf(letter, 0, Qt::CaseInsensitive);
  return at < 0 ? shown : shown.insert(at, '&');
}

}  // namespace desktop
