#include "hosts/diff_json.h"

#include "hosts/printing.h"
#include "text/numbers.h"

namespace quarvel::hosts {
namespace {

using inspect::Difference;
using inspect::DifferenceKind;
using enum inspect::DifferenceKind;

template <class Record>
void AppendRecord(std::string& json, const Record& record) {
  AppendJsonMember(json, "type", model::TypeText(record.Type));
  AppendJsonMember(json, "lower", AsLower(record.LowerBound));
  AppendJsonMember(json, "upper", AsUpper(record.UpperBound));
  AppendJsonMember(json, "elements", record.ElementCount());
}

template <class Value>
void AppendBoth(std::string& json, const Value& a, const Value& b) {
  AppendJsonMember(json, "a", a);
  AppendJsonMember(json, "b", b);
}

template <class Records>
void AppendName(std::string& json, std::string_view noun, inspect::RecordPair pair,
                const Records& a, const Records& b) {
  if (pair.a == 0 && pair.b == 0) return;
  AppendJsonMember(json, noun, pair.a != 0 ? a[pair.a].Name : b[pair.b].Name);
}

bool IsOfLower(DifferenceKind kind) { return kind == kRowLower || kind == kColumnLower; }
bool IsOfUpper(DifferenceKind kind) { return kind == kRowUpper || kind == kColumnUpper; }

// Null for what is not there.
void AppendNumber(std::string& json, std::string_view key, DifferenceKind kind, double number,
                  bool is_absent) {
  if (is_absent) return AppendJsonObject(json, key, "null");
  if (IsOfLower(kind)) return AppendJsonMember(json, key, AsLower(number));
  if (IsOfUpper(kind)) return AppendJsonMember(json, key, AsUpper(number));
  AppendJsonMember(json, key, number);
}

std::string SenseName(const mps::FileFacts& facts) {
  return facts.sense == mps::ObjectiveSense::kMaximize ? "maximize" : "minimize";
}

std::string SideJson(const std::string& file, const LPModel& model) {
  std::string json = "{";
  AppendJsonMember(json, "file", file);
  AppendJsonMember(json, "rows", model.NumberOfRows());
  AppendJsonMember(json, "columns", model.NumberOfColumns());
  AppendJsonMember(json, "elements", model.NumberOfElements());
  return json + '}';
}

}  // namespace

void DiffJson::Begin() {
  out() << "{\"a\":" + SideJson(file_a(), sides().a.model()) +
               ",\"b\":" + SideJson(file_b(), sides().b.model()) + ",\"differences\":[";
}

void DiffJson::Print(const Difference& d) {
  const model::ModelData& a = sides().a.model().store().data();
  const model::ModelData& b = sides().b.model().store().data();
  std::string json = "{";
  AppendJsonMember(json, "kind", inspect::NameOf(d.kind));
  AppendName(json, "row", d.row, a.Rows, b.Rows);
  AppendName(json, "column", d.column, a.Columns, b.Columns);
  AppendValues(json, d);
  out() << (printed_ ? ",\n" : "\n") + json + '}';
  printed_ = true;
}

void DiffJson::AppendValues(std::string& json, const Difference& d) const {
  const model::ModelData& a = sides().a.model().store().data();
  const model::ModelData& b = sides().b.model().store().data();
  const mps::FileFacts& facts_a = sides().a.facts();
  const mps::FileFacts& facts_b = sides().b.facts();
  switch (d.kind) {
    case kModelName:
      return AppendBoth(json, a.ModelName, b.ModelName);
    case kDescription:
      return AppendBoth(json, a.ModelDescription, b.ModelDescription);
    case kObjectiveSense:
      return AppendBoth(json, SenseName(facts_a), SenseName(facts_b));
    case kObjective:
      return AppendBoth(json, facts_a.objective, facts_b.objective);
    case kRowWent:
      return AppendRecord(json, a.Rows[d.row.a]);
    case kRowCame:
      return AppendRecord(json, b.Rows[d.row.b]);
    case kRowType:
      return AppendBoth(json, model::TypeText(a.Rows[d.row.a].Type),
                        model::TypeText(b.Rows[d.row.b].Type));
    case kColumnWent:
      return AppendRecord(json, a.Columns[d.column.a]);
    case kColumnCame:
      return AppendRecord(json, b.Columns[d.column.b]);
    case kColumnType:
      return AppendBoth(json, model::TypeText(a.Columns[d.column.a].Type),
                        model::TypeText(b.Columns[d.column.b].Type));
    default:
      break;
  }
  AppendNumber(json, "a", d.kind, d.before, d.kind == kElementCame);
  AppendNumber(json, "b", d.kind, d.after, d.kind == kElementWent);
}

void DiffJson::End() {
  std::string json = printed_ ? "\n],\"counts\":{" : "],\"counts\":{";
  bool first = true;
  for (std::size_t i = 0; i < inspect::kDifferenceKinds; ++i) {
    const auto kind = static_cast<DifferenceKind>(i);
    const std::int64_t count = differences().CountOf(kind);
    if (count == 0) continue;
    json.append(first ? "\"" : ",\"").append(inspect::NameOf(kind)).append("\":");
    json += text::IntegerText(count);
    first = false;
  }
  json += "},\"unlisted\":" + text::IntegerText(unlisted());
  AppendJsonMember(json, "same", none());
  out() << json + "}\n";
}

}  // namespace quarvel::hosts
