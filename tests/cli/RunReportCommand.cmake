# Runs the real tovarin-report and checks its exit status and output.
# -DPROGRAM=... -DARGS="a|b" -DSTATUS=n -DSTDOUT_LINES=file-of-lines -DSTDERR_MATCH=regex
string(REPLACE "|" ";" ARGS "${ARGS}")
execute_process(
  COMMAND ${PROGRAM} ${ARGS}
  RESULT_VARIABLE status
  OUTPUT_VARIABLE out
  ERROR_VARIABLE err)
if(NOT status EQUAL STATUS)
  message(FATAL_ERROR "exit status ${status}, expected ${STATUS}\nstdout:\n${out}\nstderr:\n${err}")
endif()
if(DEFINED STDOUT_LINES)
  # Each line of the file must stand in the output as a whole line.
  file(STRINGS ${STDOUT_LINES} wanted ENCODING UTF-8)
  foreach(line IN LISTS wanted)
    string(FIND "\n${out}" "\n${line}\n" at)
    if(at EQUAL -1)
      message(FATAL_ERROR "missing line \"${line}\" in:\n${out}")
    endif()
  endforeach()
endif()
if(DEFINED STDERR_MATCH AND NOT err MATCHES "${STDERR_MATCH}")
  message(FATAL_ERROR "stderr does not match ${STDERR_MATCH}:\n${err}")
endif()
