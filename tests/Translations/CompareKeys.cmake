# Fails when a literal that the sources hand to Localization::text has no entry in the catalogue.
file(GLOB sources "${SOURCES}/*.cpp")
execute_process(
    COMMAND "${XGETTEXT}" --from-code=UTF-8 --language=C++ --keyword --keyword=text:1
        --output=- ${sources}
    COMMAND "${MSGCMP}" --use-untranslated "${CATALOGUE}" -
    RESULTS_VARIABLE results
    ERROR_VARIABLE report)
foreach(result IN LISTS results)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${report}")
    endif()
endforeach()
# A glob or a keyword that finds nothing would make this pass for no reason.
execute_process(
    COMMAND "${XGETTEXT}" --from-code=UTF-8 --language=C++ --keyword --keyword=text:1
        --output=- ${sources}
    OUTPUT_VARIABLE found
    ERROR_QUIET)
string(FIND "${found}" "msgid \"Overdue\"" place)
if(place EQUAL -1)
    message(FATAL_ERROR "No keys were found in ${SOURCES}")
endif()
