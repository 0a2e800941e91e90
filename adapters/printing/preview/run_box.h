#pragma once

#include <QElapsedTimer>
#include <QProgressDialog>
#include <QString>
#include <cstdint>

namespace printing {

/// How far a long run over pages or rows is, and a button that ends it. It comes up when the run has taken a while; from the beginning
/// nothing else takes input.
class RunBox {
 public:
  /// `what` stands before the number of what is done. `over`: the window that it belongs to; may be nullptr.
  RunBox(const QString& what, QWidget* over);

  /// Serves the windows now and then. False when the user has said stop.
  bool GoOn(std::int64_t done);

 private:
  QString what_;
  QProgressDialog box_;
  QElapsedTimer whole_;
  QElapsedTimer served_;
};

}  // namespace printing
