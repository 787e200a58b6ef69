// The memory that a measured program will be given.
#pragma once

#include <cstddef>

namespace quarvel::bench {

// Uses and gives back so many bytes, as far as half of what is free goes.
//
// A virtual machine hands memory that has been free for a few seconds back to its host, and whoever
// uses it next waits for the host to give it anew: up to half as long again as a read takes, by
// chance and not because of the program. Called right before a run with more than it needs, this makes
// every run start alike.
void WarmMemory(std::size_t bytes);

// Waits until memory that is free has gone back to the host, where there is one that takes it.
void LetMemoryCool();

}  // namespace quarvel::bench
