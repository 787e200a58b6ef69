#include "model/variant.h"

#include <type_traits>

#include "platform/automation_error.h"
#include "text/numbers.h"

namespace quarvel::model {
namespace {

double NumberFromText(const std::string& text) {
  const std::optional<double> number = text::ParseNumber(text);
  if (!number) RaiseRunTimeError(RunTimeError::kTypeMismatch);
  return *number;
}

}  // namespace

double Variant::ToDouble() const {
  return std::visit(
      [](const auto& value) -> double {
        using T = std::decay_t<decltype(value)>;
        if constexpr (std::is_same_v<T, std::monostate>) {
          return 0;
        } else if constexpr (std::is_same_v<T, Null>) {
          RaiseRunTimeError(RunTimeError::kTypeMismatch);
        } else if constexpr (std::is_same_v<T, bool>) {
          return value ? -1 : 0;
        } else if constexpr (std::is_same_v<T, std::string>) {
          return NumberFromText(value);
        } else {
          return static_cast<double>(value);
        }
      },
      value_);
}

std::string Variant::ToText() const {
  return std::visit(
      [](const auto& value) -> std::string {
        using T = std::decay_t<decltype(value)>;
        if constexpr (std::is_same_v<T, std::monostate>) {
          return {};
        } else if constexpr (std::is_same_v<T, Null>) {
          RaiseRunTimeError(RunTimeError::kTypeMismatch);
        } else if constexpr (std::is_same_v<T, bool>) {
          return value ? "True" : "False";
        } else if constexpr (std::is_same_v<T, std::string>) {
          return value;
        } else if constexpr (std::is_same_v<T, double>) {
          return text::GeneralText(value);
        } else {
          return text::IntegerText(value);
        }
      },
      value_);
}

}  // namespace quarvel::model
