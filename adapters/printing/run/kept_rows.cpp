#include "printing/run/kept_rows.h"

#include <utility>

namespace printing {

namespace {

class RowsAgain final : public RowSource {
 public:
  RowsAgain(RowFile& file, const std::vector<RowField>& fields) : file_(file), fields_(fields) { file_.Rewind(); }
  const std::vector<RowField>& Fields() const override { return fields_; }
  bool Next() override { return file_.Read(row_, fields_.size()); }
  const std::vector<platform::Value>& Row() const override { return row_; }
  std::int64_t Count() override { return file_.Count(); }

 private:
  RowFile& file_;
  const std::vector<RowField>& fields_;
  std::vector<platform::Value> row_;
};

}  // namespace

bool KeptRows::Next() {
  if (!rows_) return false;
  if (!rows_->Next()) {
    rows_.reset();
    return false;
  }
  row_ = rows_->Row();
  file_.Write(row_);
  return true;
}

std::unique_ptr<RowSource> KeptRows::Again() { return std::make_unique<RowsAgain>(file_, fields_); }

}  // namespace printing
