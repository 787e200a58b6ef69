#include "model/about.h"
#include "quarvel/quarvel.h"

namespace quarvel {

std::string_view Version() { return model::ProductVersion(); }

}  // namespace quarvel
