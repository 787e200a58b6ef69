# What code for wider registers needs. The stack of 64-bit Windows has borders of 16 bytes, but the compiler
# takes it for one with borders of 32 bytes where it keeps such a register there: the assembler can be told to
# move them as if there were no border at all. Where it cannot, the code for all processors is used.
if(WIN32)
  include(CheckCXXCompilerFlag)
  check_cxx_compiler_flag(-Wa,-muse-unaligned-vector-move QUARVEL_MOVES_UNALIGNED)
  if(QUARVEL_MOVES_UNALIGNED)
    add_compile_options(-Wa,-muse-unaligned-vector-move)
  else()
    add_compile_definitions(QUARVEL_WITHOUT_AVX2)
  endif()
endif()
