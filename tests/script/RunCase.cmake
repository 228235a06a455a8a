# Runs one language test: vesk [ARGS] NAME.fb with the cases folder as working directory.
#   NAME.out   expected standard output, exactly
#   NAME.err   expected standard error (without it, standard error must stay empty)
#   NAME.args  the arguments, FILE standing for NAME.fb, e.g. "--check FILE", "FILE Other" or none
#              (optional; without it the file name is the only argument)
#   NAME.status the expected exit status (optional; without it the status must be 1 when a line of
#              the expected output starts with "Script error: " or "Runtime error: ", else 0)
# Variables: VESK (the command), CASES (the folder), NAME (the case). With VESK_RECORD set in the
# environment it writes NAME.out and NAME.err from what vesk does now instead: review them before
# committing (VESK_RECORD=1 ctest --test-dir build -R language.NAME).
set(args ${NAME}.fb)
if(EXISTS ${CASES}/${NAME}.args)
  file(READ ${CASES}/${NAME}.args args)
  string(REPLACE "FILE" "${NAME}.fb" args "${args}")
  separate_arguments(args UNIX_COMMAND "${args}")
endif()
execute_process(COMMAND ${VESK} ${args}
  WORKING_DIRECTORY ${CASES}
  OUTPUT_VARIABLE actual_output ERROR_VARIABLE actual_error RESULT_VARIABLE actual_status)

if(DEFINED ENV{VESK_RECORD})
  file(WRITE ${CASES}/${NAME}.out "${actual_output}")
  file(REMOVE ${CASES}/${NAME}.err)
  if(NOT actual_error STREQUAL "")
    file(WRITE ${CASES}/${NAME}.err "${actual_error}")
  endif()
  return()
endif()
file(READ ${CASES}/${NAME}.out expected_output)
set(expected_error "")
if(EXISTS ${CASES}/${NAME}.err)
  file(READ ${CASES}/${NAME}.err expected_error)
endif()
set(expected_status 0)
if(EXISTS ${CASES}/${NAME}.status)
  file(READ ${CASES}/${NAME}.status expected_status)
  string(STRIP "${expected_status}" expected_status)
elseif(expected_output MATCHES "(^|\n)(Script|Runtime) error: ")
  set(expected_status 1)
endif()

set(failed FALSE)
foreach(stream output error status)
  if(NOT actual_${stream} STREQUAL expected_${stream})
    message("${stream} differs\n--- expected\n${expected_${stream}}\n--- actual\n${actual_${stream}}")
    set(failed TRUE)
  endif()
endforeach()
if(failed)
  message(FATAL_ERROR "language test ${NAME} failed")
endif()
