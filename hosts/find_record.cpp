#include "hosts/find_record.h"

#include <charconv>
#include <string>

#include "hosts/streams.h"
#include "text/upper_case.h"

namespace quarvel::hosts {
namespace {

std::optional<std::int32_t> ParseIndex(std::string_view text) {
  std::int32_t index = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, index);
  if (error != std::errc() || stop != end) return std::nullopt;
  return index;
}

}  // namespace

std::optional<std::int32_t> LookUpRecord(const LPModel& model, const model::RecordKind& kind,
                                         std::string_view text, bool may_be_number) {
  std::int32_t number = kind.find(model.store(), text);
  if (number == 0) number = kind.find(model.store(), text::UpperCase(text));
  if (number != 0) return model::Public(number);
  const std::optional<std::int32_t> index = may_be_number ? ParseIndex(text) : std::nullopt;
  if (!index || !model::HasRecord(model, kind, *index)) return std::nullopt;
  return index;
}

std::int32_t FindRecord(const LPModel& model, const model::RecordKind& kind,
                        std::string_view text) {
  const std::optional<std::int32_t> record = LookUpRecord(model, kind, text);
  if (!record) RaiseNoRecord(model, kind, text);
  return *record;
}

void RaiseNoRecord(const LPModel& model, const model::RecordKind& kind, std::string_view text) {
  if (const std::optional<std::int32_t> index = ParseIndex(text)) {
    (model.*kind.name)(*index);  // raises for a number out of range
  }
  throw CommandError(kProblem, "there is no " + std::string(kind.noun) + " " + std::string(text));
}

}  // namespace quarvel::hosts
