// Memory for the stack of the program, before the program needs it.
#pragma once

namespace quarvel::hosts {

// Has the stack grown by as much as the program takes at most. A limit of address space (ulimit -v) is
// then met by an allocation, whose failure is told; a stack that cannot grow ends the process by a
// signal, wherever it happens to be. Raises std::bad_alloc when there is no room for it.
void ClaimStack();

}  // namespace quarvel::hosts
