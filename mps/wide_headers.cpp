#include "mps/wide_headers.h"

#include <utility>

namespace quarvel::mps {
namespace {

using enum WideHeader;

constexpr std::pair<std::string_view, WideHeader> kHeaders[] = {
    {"NAME", kName},
    {"ROWS", kPlain},
    {"COLUMNS", kPlain},
    {"RHS", kPlain},
    {"RANGES", kPlain},
    {"BOUNDS", kPlain},
    {"ENDATA", kPlain},
    {"OBJSENSE", kSense},
    {"OBJSENS", kSense},
    {"OBJSENSEMAX", kMaximize},
    {"OBJSENSEMIN", kMinimize},
    {"OBJNAME", kObjectiveName},
    {"LAZYCONS", kMoreRows},
    {"USERCUTS", kMoreRows},
    {"QUADOBJ", kNotLinear},
    {"QMATRIX", kNotLinear},
    {"QSECTION", kNotLinear},
    {"QUADS", kNotLinear},
    {"QCMATRIX", kNotLinear},
    {"CSECTION", kNotLinear},
    {"SOS", kNotLinear},
    {"SOS1", kNotLinear},
    {"SOS2", kNotLinear},
    {"SETS", kNotLinear},
    {"INDICATORS", kNotLinear},
    {"GENCONS", kNotLinear},
    {"PWLOBJ", kNotLinear},
    {"PWLNAM", kNotLinear},
    {"PWLCON", kNotLinear},
    {"MULTOBJ", kNotLinear},
    {"SCENARIOS", kNotLinear},
};

}  // namespace

WideHeader FindWideHeader(std::string_view word) {
  for (const auto& [known, header] : kHeaders) {
    if (known == word) return header;
  }
  return kUnknown;
}

ObjectiveSense SenseOf(std::string_view word) {
  if (word.starts_with("MAX")) return ObjectiveSense::kMaximize;
  return word.starts_with("MIN") ? ObjectiveSense::kMinimize : ObjectiveSense::kNotSaid;
}

}  // namespace quarvel::mps
