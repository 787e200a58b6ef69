#include "hosts/output_name.h"

#include <algorithm>
#include <array>

#include "hosts/packing.h"
#include "text/upper_case.h"

namespace quarvel::hosts {
namespace {

// Those that people who have models also have; any other suffix is the user's own business.
constexpr std::array<std::string_view, 12> kOtherFormats = {".ZIP",  ".LP",  ".SOL",  ".NL",
                                                            ".MOD",  ".GMS", ".JSON", ".CSV",
                                                            ".XLSX", ".LOG", ".BAS",  ".HTML"};

}  // namespace

std::string ObjectionToOutput(std::string_view path) {
  if (const Packing* const packing = PackingOfSuffix(path); packing != nullptr) {
    if (packing->pack == nullptr) {
      return "cannot be written: this program was built without " + std::string(packing->name);
    }
    path.remove_suffix(packing->suffix.size());
  }
  std::string upper(path);
  std::transform(upper.begin(), upper.end(), upper.begin(),
                 [](char c) { return text::UpperCaseAscii(c); });
  const auto* const found =
      std::find_if(kOtherFormats.begin(), kOtherFormats.end(),
                   [&upper](std::string_view suffix) { return upper.ends_with(suffix); });
  if (found == kOtherFormats.end()) return {};
  const std::string suffix(path.substr(path.size() - found->size()));
  return "is no name for an MPS file: " + suffix +
         " is another format; names that end in .mps, or anything else, are fine";
}

}  // namespace quarvel::hosts
