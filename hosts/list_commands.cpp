// quarvel rows, quarvel columns: one line each, printed while walking, so that the longest list
// takes no memory.

#include <algorithm>

#include "hosts/commands.h"
#include "hosts/printing.h"
#include "model/record_kind.h"
#include "text/encoding.h"
#include "text/numbers.h"
#include "text/visible_text.h"

namespace quarvel::hosts {
namespace {

constexpr std::size_t kTypeWidth = 4;
constexpr std::size_t kBoundWidth = 17;
constexpr std::size_t kCountWidth = 10;
constexpr std::string_view kGap = "  ";

class Lister {
 public:
  Lister(Session& session, const model::RecordKind& kind)
      : session_(session),
        model_(session.model()),
        kind_(kind),
        count_((model_.*kind.count)()),
        shown_(static_cast<std::int32_t>(std::min<std::int64_t>(count_, session.arguments.limit))),
        equations_(session.arguments.equations) {}

  void PrintText();
  void PrintJson();

 private:
  void MeasureNames();
  std::string Heading() const;
  void AppendTextLine(std::string& line, std::int32_t i) const;
  void AppendJsonLine(std::string& line, std::int32_t i) const;
  void Print(std::string_view text) {
    session_.streams.out.write(text.data(), static_cast<std::streamsize>(text.size()));
  }

  Session& session_;
  const LPModel& model_;
  const model::RecordKind& kind_;
  std::int32_t count_;
  std::int32_t shown_;
  bool equations_;
  std::size_t index_width_ = 5;
  std::size_t name_width_ = 4;
};

void Lister::MeasureNames() {
  index_width_ = std::max(index_width_, text::IntegerText(shown_).size());
  for (std::int32_t i = 0; i < shown_; ++i) {
    name_width_ =
        std::max(name_width_, text::CharacterCount(text::VisibleText((model_.*kind_.name)(i))));
  }
}

std::string Lister::Heading() const {
  std::string line;
  AppendRight(line, "Index", index_width_);
  line += kGap;
  AppendLeft(line, "Name", name_width_);
  if (equations_) return line.append(kGap).append("Equation\n");
  line += kGap;
  AppendLeft(line, "Type", kTypeWidth);
  AppendRight(line, "Lower", kBoundWidth);
  AppendRight(line, "Upper", kBoundWidth);
  AppendRight(line, "Elements", kCountWidth);
  return line + '\n';
}

void Lister::AppendTextLine(std::string& line, std::int32_t i) const {
  AppendRight(line, text::IntegerText(i), index_width_);
  line += kGap;
  AppendLeft(line, text::VisibleText((model_.*kind_.name)(i)), name_width_);
  line += kGap;
  if (equations_) {
    line += text::VisibleText(model_.RowEquation(i));
  } else {
    AppendLeft(line, (model_.*kind_.type)(i), kTypeWidth);
    AppendRight(line, BoundText((model_.*kind_.lower)(i)), kBoundWidth);
    AppendRight(line, BoundText((model_.*kind_.upper)(i)), kBoundWidth);
    AppendRight(line, text::IntegerText((model_.*kind_.elements)(i)), kCountWidth);
  }
  line += '\n';
}

void Lister::AppendJsonLine(std::string& line, std::int32_t i) const {
  line += '{';
  AppendJsonMember(line, "index", i);
  AppendJsonMember(line, "name", (model_.*kind_.name)(i));
  AppendJsonMember(line, "type", (model_.*kind_.type)(i));
  AppendJsonMember(line, "lowerBound", (model_.*kind_.lower)(i));
  AppendJsonMember(line, "upperBound", (model_.*kind_.upper)(i));
  AppendJsonMember(line, "elements", (model_.*kind_.elements)(i));
  if (equations_) AppendJsonMember(line, "equation", model_.RowEquation(i));
  line += '}';
}

void Lister::PrintText() {
  MeasureNames();
  Print(Heading());
  std::string line;
  for (std::int32_t i = 0; i < shown_ && session_.KeepPrinting(); ++i) {
    line.clear();
    AppendTextLine(line, i);
    Print(line);
  }
  session_.StopIfInterrupted();
  if (shown_ < count_) {
    Print("(the first " + text::IntegerText(shown_) + " of " + Counted(count_, kind_.noun) + ")\n");
  }
}

void Lister::PrintJson() {
  Print("[");
  std::string line;
  for (std::int32_t i = 0; i < shown_ && session_.KeepPrinting(); ++i) {
    line = i == 0 ? "\n" : ",\n";
    AppendJsonLine(line, i);
    Print(line);
  }
  session_.StopIfInterrupted();
  Print("\n]\n");
}

int List(Session& session, const model::RecordKind& kind) {
  session.Read(session.arguments.operands[0]);
  Lister lister(session, kind);
  if (session.arguments.json) {
    lister.PrintJson();
  } else {
    lister.PrintText();
  }
  return kGood;
}

}  // namespace

int RunRows(Session& session) { return List(session, model::kRowKind); }

int RunColumns(Session& session) { return List(session, model::kColumnKind); }

}  // namespace quarvel::hosts
