#include "records/card_fields.h"

#include <utility>

#include "platform/values/convert.h"
#include "records/fields.h"

namespace orcussch {

using platform::RecordsetRef;
using platform::Value;

void CardFields::Clear(ResumeNext& on) const {
  for (const CardField& field : fields_)
    if (field.clear) field.clear(on);
}

void CardFields::Load(ResumeNext& on, const RecordsetRef& row) const {
  for (const CardField& field : fields_)
    if (field.load) field.load(on, row);
}

void CardFields::Write(RowWrite& row, const RecordsetRef& table) const {
  for (const CardField& field : fields_) {
    if (!field.save) continue;
    row([&] {
      if (const std::optional<Value> value = field.save()) table->SetField(field.field, *value);
    });
  }
}

namespace card {

namespace {

std::function<std::optional<Value>()> Save(platform::TextBox& edit) {
  return [&edit] { return Value(edit.Text()); };
}

}  // namespace

CardField Text(const char* field, platform::TextBox& edit) {
  return {field, [&edit](ResumeNext&) { edit.Text(""); },
          [&edit, field](ResumeNext& on, const RecordsetRef& row) { on([&] { edit.Text(TextOf(row, field)); }); }, Save(edit)};
}

CardField TextNotNull(const char* field, platform::TextBox& edit) {
  return {field, [&edit](ResumeNext&) { edit.Text(""); },
          [&edit, field](ResumeNext& on, const RecordsetRef& row) { on([&] { edit.Text(TextUnguarded(row, field)); }); }, Save(edit)};
}

CardField Amount(const char* field, platform::CurrencyEdit& edit) {
  return {field, [&edit](ResumeNext&) { edit.Value(platform::Currency{0}); },
          [&edit, field](ResumeNext& on, const RecordsetRef& row) { on([&] { edit.Value(platform::CCur(row->Field(field))); }); },
          [&edit] { return Value(edit.Value()); }};
}

CardField Number(const char* field, platform::NumberEdit& edit) {
  return {field, [&edit](ResumeNext&) { edit.Value(0.0); },
          [&edit, field](ResumeNext& on, const RecordsetRef& row) { on([&] { edit.Value(platform::CDbl(row->Field(field))); }); },
          [&edit] { return Value(edit.Value()); }};
}

CardField Check(const char* field, platform::CheckBox& box, int fresh, int null) {
  return {field, [&box, fresh](ResumeNext&) { box.Value(fresh); },
          [&box, field, null](ResumeNext& on, const RecordsetRef& row) {
            on([&] {
              const Value value = row->Field(field);
              box.Value(value.IsNull() ? null : platform::CBool(value) ? 1 : 0);
            });
          },
          [&box] { return Value(box.Value() != 0); }};
}

CardField Bound(const char* field, platform::ComboBox& combo, std::function<void(ResumeNext&, const RecordsetRef&)> load) {
  return {field, [&combo](ResumeNext&) { EmptyCombo(combo); }, std::move(load), [&combo] { return combo.BoundValue(); }};
}

CardField Shown(const char* field, platform::Label& label) {
  return {field,
          [&label](ResumeNext&) { label.Caption(""); },
          [&label, field](ResumeNext& on, const RecordsetRef& row) { on([&] { label.Caption(TextUnguarded(row, field)); }); },
          {}};
}

CardField Saved(const char* field, std::function<std::optional<Value>()> value) { return {field, {}, {}, std::move(value)}; }

}  // namespace card

}  // namespace orcussch
