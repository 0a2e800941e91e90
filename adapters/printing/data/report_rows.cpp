#include "printing/data/report_rows.h"

#include <utility>
#include <vector>

#include "platform/values/error.h"
#include "printing/data/conditions.h"
#include "printing/data/field_uses.h"
#include "printing/data/report_errors.h"
#include "printing/data/report_names.h"
#include "printing/data/spooled_rows.h"
#include "printing/data/statement.h"
#include "printing/data/streamed_rows.h"
#include "printing/expressions/expression_error.h"
#include "printing/expressions/parser.h"

namespace printing {
namespace {

// The data engine's numbers.
constexpr int kTooComplex = 3360;
// Reading raises it where the rows of a file can't visit the server that joins them.
constexpr int kReadOnly = 3027;

// The parts of a condition that must all be true.
void SplitAnd(const Expression& condition, std::vector<const Expression*>& parts) {
  if (condition.kind != ExpressionKind::Operation || condition.operation != Operator::And) {
    parts.push_back(&condition);
    return;
  }
  for (const Expression& operand : condition.operands) SplitAnd(operand, parts);
}

class Opening {
 public:
  Opening(const ReportDefinition& report, const RowRequest& request, const DataServices& services)
      : report_(report),
        request_(request),
        services_(services),
        reader_(services.openReader()),
        tables_(report, request.dataFiles, services, *reader_),
        sort_(SortKeysOf(report, request.sortFields, tables_)) {}

  std::unique_ptr<RowSource> Run() {
    if (!request_.selection.empty()) selection_ = ParseSelection();
    CheckSelections();
    std::unique_ptr<StreamedRows> rows = Open(!request_.askRowByRow);
    if (!tables_.SomeAreTemporary()) return rows;
    return std::make_unique<SpooledRows>(*rows);
  }

 private:
  Expression ParseSelection() const {
    try {
      return ParseExpression(request_.selection);
    } catch (const ExpressionError& error) {
      throw Bad(error);
    }
  }
  static ReportFailure Bad(const ExpressionError& error) {
    return {ReportError::BadSelection, "selection, sign " + std::to_string(error.Place() + 1) + ": " + error.Text()};
  }

  // Both selections as wholes, before their parts go different ways.
  void CheckSelections() const {
    std::vector<const Expression*> all;
    if (report_.selection) all.push_back(&*report_.selection);
    if (selection_) all.push_back(&*selection_);
    const std::vector<RowField> fields = Fields(all, false);
    ReportNames names(report_, fields, services_.text, ReportNames::Totals::None);
    if (report_.selection) MakeReportCondition(*report_.selection, names, services_.text);
    if (!selection_) return;
    try {
      MakeReadyCondition(*selection_, names, services_.text);
    } catch (const ExpressionError& error) {
      throw Bad(error);
    }
  }

  // Fields that aren't there are left out where their names are checked later.
  std::vector<RowField> Fields(const std::vector<const Expression*>& expressions, bool all) const {
    std::vector<RowField> fields;
    for (const Expression* name : FieldsOf(report_, expressions)) {
      const std::optional<StoredField> field = tables_.Find(name->table, name->name);
      if (!field && !all) continue;
      if (!field) throw NoSuchField(*name);
      fields.push_back({field->table, field->name, TypeOf(field->type)});
    }
    return fields;
  }

  std::unique_ptr<StreamedRows> Open(bool byStore) {
    std::vector<const Expression*> parts;
    if (report_.selection) SplitAnd(*report_.selection, parts);
    if (selection_) SplitAnd(*selection_, parts);
    const Conditions conditions(report_, tables_, services_.today);
    std::vector<std::string> stores;
    std::vector<const Expression*> own;
    for (const Expression* part : parts) {
      std::optional<std::string> condition = byStore ? conditions.ConditionOf(*part) : std::nullopt;
      if (condition)
        stores.push_back(*std::move(condition));
      else
        own.push_back(part);
    }
    std::vector<const Expression*> used = ExpressionsOfRows(report_);
    used.insert(used.end(), own.begin(), own.end());
    std::vector<RowField> fields = Fields(used, true);
    const std::string statement = StatementOf(report_, tables_, fields, stores, sort_);
    try {
      return std::make_unique<StreamedRows>(report_, std::move(fields), own, services_, reader_, tables_.Path(0), statement,
                                            parts.empty() && report_.tables.size() == 1);
    } catch (const platform::Error& error) {
      if (error.Number() == kTooComplex && !stores.empty()) return Open(false);
      const ReportError kind = error.Number() == kReadOnly ? ReportError::NoGuests : ReportError::ReadingFailed;
      throw ReportFailure(kind, tables_.Path(0) + ": " + error.Description());
    }
  }

  const ReportDefinition& report_;
  const RowRequest& request_;
  const DataServices& services_;
  std::unique_ptr<platform::SnapshotReader> reader_;
  DataTables tables_;
  std::vector<SortKey> sort_;
  std::optional<Expression> selection_;
};

}  // namespace

std::unique_ptr<RowSource> OpenReportRows(const ReportDefinition& report, const RowRequest& request, const DataServices& services) {
  return Opening(report, request, services).Run();
}

}  // namespace printing
