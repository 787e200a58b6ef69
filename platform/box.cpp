#include "platform/box.h"

#include <algorithm>
#include <array>

namespace quarvel::platform {
namespace {

using enum MsgBoxResult;

struct Style {
  MsgBoxStyle style;
  std::array<MsgBoxResult, 3> buttons;
  std::size_t button_count;
  bool exclamation;
  MsgBoxResult when_closed;
};

constexpr auto kStyles = std::to_array<Style>({
    {MsgBoxStyle::kOk, {kOk}, 1, false, kOk},
    {MsgBoxStyle::kYesNo, {kYes, kNo}, 2, false, kNo},
    {MsgBoxStyle::kYesNoCancelExclamation, {kYes, kNo, kCancel}, 3, true, kCancel},
    {MsgBoxStyle::kYesNoExclamation, {kYes, kNo}, 2, true, kNo},
});

Box Telling(BoxKind kind, std::string_view statement) {
  return {.kind = kind, .statement = std::string(statement), .question = {}};
}

}  // namespace

BoxLook LookOf(MsgBoxStyle style) {
  const auto known = std::find_if(kStyles.begin(), kStyles.end(),
                                  [style](const Style& each) { return each.style == style; });
  const Style& found = known == kStyles.end() ? kStyles.front() : *known;
  return {{found.buttons.data(), found.button_count}, found.exclamation, found.when_closed};
}

bool BoxLook::Has(MsgBoxResult button) const {
  return std::find(buttons.begin(), buttons.end(), button) != buttons.end();
}

std::string Box::text() const {
  if (statement.empty()) return question;
  return question.empty() ? statement : statement + "\r\n" + question;
}

Box Refusal(std::string_view statement) { return Telling(BoxKind::kRefusal, statement); }

Box Note(std::string_view statement) { return Telling(BoxKind::kNote, statement); }

Box Failure(const AutomationError& error) {
  Box box = Telling(BoxKind::kFailure, error.description());
  box.failure = error.run_time_error();
  return box;
}

Box Question(BoxKind kind, std::string_view question, MsgBoxStyle style, std::string_view title) {
  return {.kind = kind,
          .statement = {},
          .question = std::string(question),
          .style = style,
          .title = std::string(title)};
}

}  // namespace quarvel::platform
