// What a command says of the losses of a model that it writes.
#pragma once

#include <string>
#include <vector>

#include "mps/loss.h"

namespace quarvel::hosts {

// Lines for a terminal about those of that weight: the first few of each kind, and how many more there are.
std::vector<std::string> LossLines(const mps::Losses& losses, mps::LossWeight weight);

}  // namespace quarvel::hosts
