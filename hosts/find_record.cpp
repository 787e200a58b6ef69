#include "hosts/find_record.h"

#include <charconv>
#include <optional>

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

std::int32_t FindRecord(const LPModel& model, const model::RecordKind& kind,
                        std::string_view text) {
  std::int32_t number = kind.find(model.store(), text);
  if (number == 0) number = kind.find(model.store(), text::UpperCase(text));
  if (number != 0) return model::Public(number);
  const std::optional<std::int32_t> index = ParseIndex(text);
  if (!index) {
    throw CommandError(kProblem, "there is no " + std::string(kind.noun) + " " + std::string(text));
  }
  (model.*kind.name)(*index);  // raises for a number out of range
  return *index;
}

}  // namespace quarvel::hosts
