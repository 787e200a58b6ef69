// Where the system looks for libraries that are loaded by name while the program runs: its dialogs
// load those of other programs, which load more.
#pragma once

namespace quarvel::hosts {

// From now on only in the system's folder, and in folders that are added by their full names; not
// in the current folder, nor in those of PATH. Of Windows alone: elsewhere neither is looked into.
void RestrictLibrarySearch();

}  // namespace quarvel::hosts
