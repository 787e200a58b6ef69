#include "model/about.h"

#include "text/version.h"

namespace quarvel::model {

std::string_view ProductVersion() { return QUARVEL_PRODUCT_VERSION; }
std::string_view ComponentVersion() { return QUARVEL_COMPONENT_VERSION; }

std::string AboutText() {
  return "Quarvel version " + std::string(ProductVersion()) + " (component version " +
         std::string(ComponentVersion()) + ")\r\n\r\nWritten by the Quarvel developers.\r\n" +
         std::string(kWhereToReport);
}

}  // namespace quarvel::model
