// What the tests of writing share: a model's text as the writer makes it, and its sections.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
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

// An empty model with its builder, on a scripted desktop of any kind.
struct HandMadeModel {
  using OwnDesktop = std::unique_ptr<platform::ScriptedDesktop>;
  explicit HandMadeModel(OwnDesktop on = std::make_unique<platform::ScriptedDesktop>())
      : own_desktop(std::move(on)) {}

  OwnDesktop own_desktop;
  platform::ScriptedDesktop& desktop = *own_desktop;
  LPModel model{desktop};
  ModelBuilder build{model};

  // The text that the writer gives for it.
  WrittenModel Write() const;
};

// The bytes of a file in tests/mps/golden.
std::string GoldenFile(std::string_view name);

}  // namespace quarvel::mps
