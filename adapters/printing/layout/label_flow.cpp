#include "printing/layout/label_flow.h"

#include <algorithm>

namespace printing {

namespace {

/// Takes off what lies below the label: whole lines of text, and the ends of boxes.
void KeepInside(BandBox& label, double height) {
  label.items.erase(std::remove_if(label.items.begin(), label.items.end(),
                                   [height](const PageItem& item) {
                                     const auto* text = std::get_if<TextItem>(&item);
                                     return text && text->y + text->height > height + kSmallest;
                                   }),
                    label.items.end());
  if (label.height > height) label = Part(std::move(label), height).first;
}

}  // namespace

LabelFlow::LabelFlow(const ReportDefinition& report, PageSink& sink, int first)
    : report_(report), sheet_(report.labels.value_or(LabelSheet{})), sink_(sink) {
  sheet_.across = std::max(1, sheet_.across);
  sheet_.down = std::max(1, sheet_.down);
  const std::int64_t cells = std::int64_t{sheet_.across} * sheet_.down;
  cell_ = static_cast<int>((std::max(1, first) - 1) % cells);
}

void LabelFlow::Add(BandBox label) {
  begun_ = true;
  KeepInside(label, sheet_.height);
  PutOn(page_, std::move(label), sheet_.left + sheet_.pitchAcross * (cell_ % sheet_.across),
        sheet_.top + sheet_.pitchDown * (cell_ / sheet_.across));
  if (++cell_ < sheet_.across * sheet_.down) return;
  Finish();
}

void LabelFlow::Finish() {
  if (!begun_) return;
  page_.width = report_.pageWidth;
  page_.height = report_.pageHeight;
  sink_.Add(page_);
  page_.items.clear();
  ++sheets_;
  cell_ = 0;
  begun_ = false;
}

}  // namespace printing
