// A run of the program on the standard streams of its process: what main() does.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "hosts/streams.h"

namespace quarvel::hosts {

// `words` gives the command line without the program's name, `view` is Streams::view, `failure` the status of
// what fails outside of the command. Gives the exit status, which tells also of results that could not be
// written. Raises nothing.
int RunOnStandardStreams(const std::function<std::vector<std::string>()>& words,
                         std::function<int(Session&)> view, int failure);

}  // namespace quarvel::hosts
