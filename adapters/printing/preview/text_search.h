#pragma once

#include <QString>
#include <optional>

#include "printing/output/page_spool.h"
#include "printing/preview/page_text.h"

namespace printing {

/// A search over all pages, some of them at a time, so that the window lives on meanwhile.
class TextSearch {
 public:
  enum class State { Idle, Searching, Found, NotFound };

  explicit TextSearch(const PageSpool& pages) : pages_(pages) {}

  /// Goes on behind (or before) the hit that is there, or with the first on `page` where the text is another one.
  void Begin(const QString& wanted, bool forward, std::int64_t page);
  void Clear();
  /// Looks at one page more. `complete`: no further pages are laid out.
  void Step(bool complete, std::int64_t pageCount);

  State Now() const { return state_; }
  const QString& Wanted() const { return wanted_; }
  const std::optional<TextHit>& Hit() const { return hit_; }
  std::int64_t PagesLookedAt() const { return looked_; }

 private:
  bool Take(const QList<TextHit>& hits);

  const PageSpool& pages_;
  QString wanted_;
  bool forward_ = true;
  State state_ = State::Idle;
  std::optional<TextHit> hit_;
  std::optional<TextHit> from_;  ///< where the search goes on from, on the first page
  std::int64_t page_ = 0;        ///< that comes next
  std::int64_t looked_ = 0;
};

}  // namespace printing
