// quarvel info: what the model holds, in numbers.

#include "hosts/commands.h"
#include "hosts/printing.h"
#include "text/numbers.h"
#include "text/visible_text.h"

namespace quarvel::hosts {
namespace {

std::int32_t IntegerColumns(const LPModel& model) {
  std::int32_t count = 0;
  for (std::int32_t j = 0; j < model.NumberOfColumns(); ++j) {
    if (model::ColumnTypeOf(model.ColType(j)) == model::ColumnType::kInteger) ++count;
  }
  return count;
}

std::string InfoJson(const Session& session, const LPModel& model) {
  std::string json = "{";
  AppendJsonMember(json, "name", model.ModelName());
  AppendJsonMember(json, "description", model.ModelDescription());
  AppendJsonMember(json, "file", model.FileLocation());
  AppendJsonMember(json, "rows", model.NumberOfRows());
  AppendJsonMember(json, "columns", model.NumberOfColumns());
  AppendJsonMember(json, "elements", model.NumberOfElements());
  AppendJsonMember(json, "bindingRows", model.NumberOfBindingRows());
  AppendJsonMember(json, "nonBindingRows", model.NumberOfNonBindingRows());
  AppendJsonMember(json, "integerColumns", IntegerColumns(model));
  AppendJsonMember(json, "hasEndata", !session.may_be_cut_off());
  return json + "}\n";
}

void AppendFact(std::string& text, std::string_view what, std::string_view fact) {
  constexpr std::size_t kWidth = 18;
  if (fact.empty()) return;
  AppendLeft(text, what, kWidth);
  text += text::VisibleText(fact) + '\n';
}

void AppendDescription(std::string& text, std::string_view description) {
  constexpr std::string_view kLineEnd = "\r\n";
  std::string_view what = "Description";
  while (!description.empty()) {
    const std::size_t end = description.find(kLineEnd);
    AppendFact(text, what, description.substr(0, end));
    what = "";
    if (end == std::string_view::npos) break;
    description.remove_prefix(end + kLineEnd.size());
  }
}

std::string InfoText(const LPModel& model) {
  std::string text;
  AppendFact(text, "Name", model.ModelName());
  AppendDescription(text, model.ModelDescription());
  AppendFact(text, "File", model.FileLocation());
  AppendFact(text, "Binding rows", text::IntegerText(model.NumberOfBindingRows()));
  AppendFact(text, "Non-binding rows", text::IntegerText(model.NumberOfNonBindingRows()));
  AppendFact(text, "Integer columns", text::IntegerText(IntegerColumns(model)));
  AppendFact(text, "Summary", SizeText(model));
  return text;
}

}  // namespace

int RunInfo(Session& session) {
  session.Read(session.arguments.operands[0]);
  const LPModel& model = session.model();
  session.streams.out << (session.arguments.json ? InfoJson(session, model) : InfoText(model));
  return kGood;
}

}  // namespace quarvel::hosts
