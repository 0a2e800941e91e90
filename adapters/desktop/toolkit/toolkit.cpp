#include "desktop/toolkit/toolkit.h"

#include "platform/values/error.h"

namespace desktop {

qsizetype CharactersBefore(const QString& text, qsizetype at) {
  qsizetype characters = 0;
  for (qsizetype i = 0; i < at && i < text.size(); ++i)
    if (!text[i].isLowSurrogate()) ++characters;
  return characters;
}

qsizetype PositionOfCharacter(const QString& text, qsizetype characters) {
  qsizetype at = 0;
  while (at < text.size() && characters > 0) {
    at += text[at].isHighSurrogate() && at + 1 < text.size() ? 2 : 1;
    --characters;
  }
  return at;
}

void ReportFromSlot(platform::FormHost& host, const std::exception* what) noexcept {
  try {
    if (const auto* error = dynamic_cast<const platform::Error*>(what)) {
      host.Unhandled(*error);
    } else {
      host.Log(platform::LogLevel::Failure, std::string("window: ") + (what ? what->what() : "unknown exception"));
    }
  } catch (...) {
    // Nothing is left to tell it to.
  }
}

QString WidgetName(const platform::Control& control) {
  QString name = ToShown(control.Name());
  if (control.Index() >= 0) name += "_" + QString::number(control.Index());
  return name;
}

}  // namespace desktop
