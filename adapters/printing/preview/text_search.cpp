#include "printing/preview/text_search.h"

#include <algorithm>

namespace printing {

namespace {

/// Order of hits on one page.
bool Before(const TextHit& left, const TextHit& right) { return left.item != right.item ? left.item < right.item : left.from < right.from; }

}  // namespace

void TextSearch::Begin(const QString& wanted, bool forward, std::int64_t page) {
  if (wanted.isEmpty()) return Clear();
  from_.reset();
  if (wanted == wanted_ && hit_) from_ = hit_;
  wanted_ = wanted;
  forward_ = forward;
  page_ = from_ ? from_->page : page;
  looked_ = 0;
  state_ = State::Searching;
}

void TextSearch::Clear() {
  wanted_.clear();
  hit_.reset();
  from_.reset();
  state_ = State::Idle;
}

bool TextSearch::Take(const QList<TextHit>& hits) {
  QList<TextHit> left = hits;
  if (from_ && looked_ == 0) left.removeIf([this](const TextHit& hit) { return forward_ ? !Before(*from_, hit) : !Before(hit, *from_); });
  if (left.isEmpty()) return false;
  hit_ = forward_ ? left.front() : left.back();
  state_ = State::Found;
  return true;
}

void TextSearch::Step(bool complete, std::int64_t pageCount) {
  if (state_ != State::Searching) return;
  const std::int64_t count = pages_.Count();
  // Around the end and back to the first page, once all of them are there.
  if (page_ >= count && !complete) return;
  if (page_ >= count) page_ = 0;
  if (page_ < 0) page_ = std::max<std::int64_t>(0, count - 1);
  if (count == 0 || looked_ > count) {
    hit_.reset();
    state_ = State::NotFound;
    return;
  }
  if (Take(HitsOn(pages_.Read(page_), page_, wanted_, pageCount))) return;
  ++looked_;
  page_ += forward_ ? 1 : -1;
}

}  // namespace printing
