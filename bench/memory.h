// The memory that a measured program will be given.
#pragma once

namespace quarvel::bench {

// Uses and gives back more memory than any job needs, as far as half of what is free goes.
//
// A virtual machine hands memory that has been free for a few seconds back to its host, and whoever
// uses it next waits for the host to give it anew: up to half as long again as a read takes, by
// chance and not because of the program. Called right before a run, this makes every run start
// alike.
void WarmMemory();

}  // namespace quarvel::bench
