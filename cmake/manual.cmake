# Makes the manual and the scripts that complete command lines, by the program itself, in the places where
# an installation has them: cmake -DPROGRAM=... -DSHARE=... -P cmake/manual.cmake
function(write_output file)
  execute_process(COMMAND "${PROGRAM}" ${ARGN} OUTPUT_VARIABLE text COMMAND_ERROR_IS_FATAL ANY)
  file(WRITE "${SHARE}/${file}" "${text}")
endfunction()

execute_process(COMMAND "${PROGRAM}" __complete help "" OUTPUT_VARIABLE commands
                COMMAND_ERROR_IS_FATAL ANY)
write_output(man/man1/quarvel.1 man)
string(REGEX MATCHALL "\n[a-z]+" commands "${commands}")
foreach(command IN LISTS commands)
  string(STRIP "${command}" command)
  write_output(man/man1/quarvel-${command}.1 man ${command})
endforeach()
write_output(bash-completion/completions/quarvel completion bash)
write_output(zsh/site-functions/_quarvel completion zsh)
write_output(fish/vendor_completions.d/quarvel.fish completion fish)
