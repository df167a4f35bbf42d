# cmake -P script: install, configure the consumer against the prefix, build it, run it.
file(REMOVE_RECURSE ${WORK_DIR})
set(prefix ${WORK_DIR}/prefix)

function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result)
    if(NOT result EQUAL 0)
        list(JOIN ARGN " " command)
        message(FATAL_ERROR "Failed (${result}): ${command}")
    endif()
endfunction()

if(NOT BUILD_TYPE)
    set(BUILD_TYPE RelWithDebInfo)
endif()
run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix} --config ${BUILD_TYPE})
run(${CMAKE_COMMAND} -S ${CONSUMER_SOURCE} -B ${WORK_DIR}/build
    -DCMAKE_BUILD_TYPE=${BUILD_TYPE}
    -DCMAKE_PREFIX_PATH=${prefix}
    -DQt6_DIR=${QT_DIR})
run(${CMAKE_COMMAND} --build ${WORK_DIR}/build --config ${BUILD_TYPE})
find_program(consumer NAMES consumer PATHS ${WORK_DIR}/build ${WORK_DIR}/build/${BUILD_TYPE}
    NO_DEFAULT_PATH REQUIRED)
run(${consumer})
