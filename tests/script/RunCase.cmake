# Runs one language test: vesk [ARGS] NAME.fb with the cases folder as working directory.
#   NAME.out   expected standard output, exactly
#   NAME.err   expected standard error (without it, standard error must stay empty)
#   NAME.args  the arguments, FILE standing for NAME.fb, e.g. "--check FILE" or "FILE Other"
#              (optional; without it the file name is the only argument)
#   NAME.status the expected exit status (optional; without it the status must be 1 when a line of
#              the expected output starts with "Script error: " or "Runtime error: ", else 0)
# Variables: VESK (the command), CASES (the folder), NAME (the case).
set(args ${NAME}.fb)
if(EXISTS ${CASES}/${NAME}.args)
  file(READ ${CASES}/${NAME}.args args)
  string(STRIP "${args}" args)
  string(REPLACE "FILE" "${NAME}.fb" args "${args}")
  separate_arguments(args UNIX_COMMAND "${args}")
endif()
execute_process(COMMAND ${VESK} ${args}
  WORKING_DIRECTORY ${CASES}
  OUTPUT_VARIABLE actual_out ERROR_VARIABLE actual_err RESULT_VARIABLE status)

file(READ ${CASES}/${NAME}.out expected_out)
set(expected_err "")
if(EXISTS ${CASES}/${NAME}.err)
  file(READ ${CASES}/${NAME}.err expected_err)
endif()
set(expected_status 0)
if(EXISTS ${CASES}/${NAME}.status)
  file(READ ${CASES}/${NAME}.status expected_status)
  string(STRIP "${expected_status}" expected_status)
elseif(expected_out MATCHES "(^|\n)(Script|Runtime) error: ")
  set(expected_status 1)
endif()

set(failed FALSE)
if(NOT actual_out STREQUAL expected_out)
  message("standard output differs\n--- expected\n${expected_out}\n--- actual\n${actual_out}")
  set(failed TRUE)
endif()
if(NOT actual_err STREQUAL expected_err)
  message("standard error differs\n--- expected\n${expected_err}\n--- actual\n${actual_err}")
  set(failed TRUE)
endif()
if(NOT status STREQUAL expected_status)
  message("exit status ${status}, expected ${expected_status}")
  set(failed TRUE)
endif()
if(failed)
  message(FATAL_ERROR "language test ${NAME} failed")
endif()
