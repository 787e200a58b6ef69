# What makes a mistake that is still there hard to use. Optimised builds, which are what is shipped, get
# it; those for debuggers, sanitizers and fuzzing have checks of their own. tests/hardening.py holds the
# built files to it, docs/performance.md has what it costs.

# quarvel_harden(<target>)
function(quarvel_harden target)
  if(NOT CMAKE_BUILD_TYPE STREQUAL "Release")
    return()
  endif()
  # Buffers of known size are checked where the system's functions write to them. Not in the rooms that a
  # read goes through: the checks stop the compiler from putting their small functions into one another,
  # which costs a tenth, and their arrays have checks of their own.
  target_compile_options(${target} PRIVATE -U_FORTIFY_SOURCE)
  if(NOT target MATCHES "^quarvel_(text|model|mps)$")
    target_compile_options(${target} PRIVATE -D_FORTIFY_SOURCE=3)
  endif()
  # The stack is checked when a function with a buffer returns.
  target_compile_options(${target} PRIVATE -fstack-protector-strong)
  if(WIN32)
    # Places by chance, in the whole address space where that is a large one, and no code in data. The
    # compiler has the check of the stack in a library of its own, which becomes part of the program.
    target_link_options(${target} PUBLIC -fstack-protector-strong -Wl,--dynamicbase,--nxcompat)
    # The same sources make the same file whenever it is linked.
    target_link_options(${target} PUBLIC -Wl,--no-insert-timestamp)
    if(CMAKE_SIZEOF_VOID_P EQUAL 8)
      target_link_options(${target} PUBLIC -Wl,--high-entropy-va)
    endif()
    return()
  endif()
  # A stack that grows touches every page on its way. Places by chance; the linker's tables are complete
  # and read-only before the program starts.
  target_compile_options(${target} PRIVATE -fstack-clash-protection)
  get_target_property(is_for_any_place ${target} POSITION_INDEPENDENT_CODE)
  if(NOT is_for_any_place)
    target_compile_options(${target} PRIVATE -fPIE)
  endif()
  target_link_options(${target} PUBLIC "$<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:-pie>"
                                          -Wl,-z,relro,-z,now,-z,noexecstack)
  if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64|i.86")
    # Calls and jumps arrive where the compiler meant them to.
    target_compile_options(${target} PRIVATE -fcf-protection=full)
  endif()
endfunction()
