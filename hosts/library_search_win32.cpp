#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

#include "hosts/library_search.h"

namespace quarvel::hosts {

void RestrictLibrarySearch() {
  SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32 | LOAD_LIBRARY_SEARCH_USER_DIRS);
  // For libraries that ask for the older order.
  SetDllDirectoryW(L"");
}

}  // namespace quarvel::hosts
