// What the tests of writing share: a model's text as the writer makes it, and its sections.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "component/lp_model.h"
#include "platform/scripted/scripted_desktop.h"
#include "tests/support/model_builder.h"

namespace quarvel::mps {

using Lines = std::vector<std::string>;

struct WrittenModel {
  std::string text;
  bool standard;

  // The lines between a section's header and the next header, without their line ends. Throws
  // std::out_of_range when there is no such header.
  Lines Section(std::string_view header) const;
};

// An empty model with its desktop and builder.
struct HandMadeModel {
  platform::ScriptedDesktop desktop;
  LPModel model{desktop};
  ModelBuilder build{model};

  // The text that the writer gives for it.
  WrittenModel Write() const;
};

// The bytes of a file in tests/mps/golden.
std::string GoldenFile(std::string_view name);

}  // namespace quarvel::mps
