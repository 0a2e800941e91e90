#include "platform/controls/combo.h"

#include "platform/controls/data_control.h"
#include "platform/values/convert.h"
#include "platform/values/error.h"
#include "platform/values/format.h"
#include "platform/values/text.h"

namespace platform {

ComboBox::ComboBox(Form& form, std::string name) : Control(form, std::move(name)) {}
ComboBox::ComboBox(Form& form, std::string name, int index) : Control(form, std::move(name), index) {}

void ComboBox::FillFrom(DataControl& source, std::string boundField, std::string listField, std::vector<ComboColumn> columns) {
  source_ = &source;
  boundField_ = std::move(boundField);
  listField_ = std::move(listField);
  columns_ = std::move(columns);
  source.Attach(*this);
}

void ComboBox::Fill(std::vector<ComboRow> rows) {
  fixed_ = std::move(rows);
  Changed(Aspect::List);
}

void ComboBox::BoundValue(Value value) { Take(std::move(value), text_); }

void ComboBox::Text(std::string text) { Take(bound_, std::move(text)); }

void ComboBox::ColumnCaption(int column, std::string caption) {
  columns_.at(static_cast<std::size_t>(column)).caption = std::move(caption);
  Changed(Aspect::Columns);
}

std::vector<ComboRow> ComboBox::Rows() const {
  if (!source_) return fixed_;
  std::vector<ComboRow> rows;
  try {
    if (!source_->HasRecordset()) return rows;
    RecordsetRef clone = source_->Recordset()->Clone();
    if (clone->RecordCount() != 0) {
      for (clone->MoveFirst(); !clone->Eof(); clone->MoveNext()) {
        ComboRow row;
        row.key = clone->Field(boundField_);
        row.shown = CStr(Concat(clone->Field(listField_), ""));
        for (const ComboColumn& column : columns_) {
          const Value cell = clone->Field(column.field);
          row.cells.push_back(column.numberFormat.empty() ? CStr(Concat(cell, "")) : Format(cell, column.numberFormat));
        }
        rows.push_back(std::move(row));
      }
    }
    clone->Close();
  } catch (const Error&) {
    rows.clear();
  }
  return rows;
}

void ComboBox::UserPick(const ComboRow& row) {
  UserCommand([&] {
    SetFocus();
    Take(row.key, row.shown);
  });
}

void ComboBox::UserClear() {
  UserCommand([&] {
    SetFocus();
    Take("", "");
  });
}

void ComboBox::UserType(std::string_view text) {
  Act([&] {
    for (const ComboRow& row : Rows())
      if (EqualsNoCase(row.shown, text)) return Take(row.key, row.shown);
    Take("", std::string(text));
  });
}

void ComboBox::Take(Value bound, std::string text) {
  if (bound_ == bound && text_ == text) return;
  bound_ = std::move(bound);
  text_ = std::move(text);
  Changed(Aspect::Text);
  Change.Fire();
}

}  // namespace platform
