#include "mps/column_order.h"

#include <string>
#include <string_view>
#include <utility>

namespace quarvel::mps {
namespace {

using enum FileProblemCode;

}  // namespace

void ColumnOrder::Compare(const SourceLine& line, std::int32_t column, model::ColumnType type) {
  if (column == 0) return;
  last_ = column;
  const bool stands_apart = column != std::exchange(before_, column);
  if (column > newest_) {
    newest_ = column;
    return;
  }
  const std::string_view name = line[1];
  if (stands_apart) TellOf(hear_, kColumnAgain, line, name, std::string(name), "one column");
  if (sink_.ColumnTypeOf(column) == type) return;
  const bool is_integer = type != model::ColumnType::kInteger;
  TellOf(hear_, kMarkerWithin, line, name, std::string(name),
         is_integer ? "it stays integer" : "it stays continuous");
}

void ColumnOrder::UseMarker(const SourceLine& line) {
  last_ = -1;
  const std::string_view word = line[3];
  const bool begins = word == model::TraitsOf(model::ColumnType::kInteger).marker;
  const bool is_open = open_line_ != 0;
  if (begins == is_open) {
    FileProblem problem = ProblemOf(kMarkerPair, line, word, std::string(word), "passed over");
    if (is_open) problem.lines = {open_line_};
    hear_(std::move(problem));
  } else if (begins) {
    open_line_ = line.number();
    open_ =
        ProblemOf(kMarkerPair, line, word, std::string(word), "all columns behind it are integer");
  } else {
    open_line_ = 0;
  }
}

void ColumnOrder::Finish() {
  if (open_line_ != 0) hear_(std::move(open_));
}

}  // namespace quarvel::mps
