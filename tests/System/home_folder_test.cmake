# Runs PROBE under an account database that holds ACCOUNT (or nobody) and expects its exit status,
# its output and what it says on standard error.
file(WRITE "${FOLDER}/passwd" "${ACCOUNT}")
file(WRITE "${FOLDER}/group" "")
# The address sanitizer wants to be loaded first, but puts up with this.
execute_process(
    COMMAND "${CMAKE_COMMAND}" -E env "LD_PRELOAD=${WRAPPER}" "ASAN_OPTIONS=verify_asan_link_order=0" "NSS_WRAPPER_PASSWD=${FOLDER}/passwd"
        "NSS_WRAPPER_GROUP=${FOLDER}/group" "HOME=/elsewhere" "${PROBE}"
    RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE error)
if(NOT status EQUAL EXPECTED_STATUS)
    message(FATAL_ERROR "exit status ${status} instead of ${EXPECTED_STATUS}: ${error}")
endif()
if(NOT output MATCHES "${EXPECTED_OUTPUT}")
    message(FATAL_ERROR "printed '${output}' instead of '${EXPECTED_OUTPUT}'")
endif()
if(NOT error MATCHES "${EXPECTED_ERROR}")
    message(FATAL_ERROR "complained '${error}' instead of '${EXPECTED_ERROR}'")
endif()
