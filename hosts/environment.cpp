#include "hosts/environment.h"

#include <cstdlib>
#include <string>
#include <string_view>

#include "hosts/option.h"
#include "hosts/streams.h"

namespace quarvel::hosts {

void TakeEnvironment(Arguments& arguments) {
  if (arguments.infinite_default_bounds) return;
  const char* const given = std::getenv("QUARVEL_DEFAULT_BOUNDS");
  const std::string_view value = given == nullptr ? "" : given;
  const Option& option = OptionOf(kDefaultBounds);
  if (value.empty() || option.set(arguments, value)) return;
  throw CommandError(kUsage, "QUARVEL_DEFAULT_BOUNDS in the environment takes " +
                                 std::string(option.value) + ", not \"" + std::string(value) +
                                 "\"; change or unset it, or give " + std::string(option.name));
}

}  // namespace quarvel::hosts
