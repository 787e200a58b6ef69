// Memory for the stack of the program, before the program needs it.
#pragma once

namespace quarvel::hosts {

// Has the stack grown by as much as the program takes at most. A limit of address space (ulimit -v) is
// then met by an allocation, whose failure is told; a stack that cannot grow ends the process by a
// signal, wherever it happens to be. False when there is no room for it: then there may be none for an exception
// either.
[[nodiscard]] bool ClaimStack();

// Says that there is no memory, and ends the process with that status. Takes none, nor a symbol that would
// still have to be looked up.
[[noreturn]] void EndWithoutStack(int status);

}  // namespace quarvel::hosts
