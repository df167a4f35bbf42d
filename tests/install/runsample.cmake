# cmake -P script: install, build the sample provider against the prefix, load what it built.
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
run(${CMAKE_COMMAND} -S ${SAMPLE_SOURCE} -B ${WORK_DIR}/build
    -DCMAKE_BUILD_TYPE=${BUILD_TYPE}
    -DCMAKE_PREFIX_PATH=${prefix}
    -DCMAKE_INSTALL_PREFIX=${prefix}
    -DQt6_DIR=${QT_DIR})
run(${CMAKE_COMMAND} --build ${WORK_DIR}/build --config ${BUILD_TYPE})
run(${CMAKE_COMMAND} --install ${WORK_DIR}/build --config ${BUILD_TYPE})
file(GLOB plugins ${prefix}/bin/plugins/*TextProvider*)
list(LENGTH plugins count)
if(NOT count EQUAL 1)
    message(FATAL_ERROR "Expected the sample in ${prefix}/bin/plugins, found: ${plugins}")
endif()
run(${LOADER} ${plugins})
