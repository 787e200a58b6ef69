#include "hosts/library_search.h"
#include "platform/win32/win32.h"

namespace quarvel::hosts {

void RestrictLibrarySearch() {
  SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32 | LOAD_LIBRARY_SEARCH_USER_DIRS);
  // For libraries that ask for the older order.
  SetDllDirectoryW(L"");
}

}  // namespace quarvel::hosts
