# cmake -P script: install, configure the consumer against the prefix, build it, run it.
# With SAMPLE_SOURCE and LOADER, the consumer is the sample provider instead: it is built and
# installed into the prefix's plug-in folder, and LOADER loads what was installed.
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
if(SAMPLE_SOURCE)
    # The framework's install brings its own build of the sample: only this one may be found.
    file(REMOVE_RECURSE ${prefix}/bin/plugins)
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
    return()
endif()

run(${CMAKE_COMMAND} -S ${CONSUMER_SOURCE} -B ${WORK_DIR}/build
    -DCMAKE_BUILD_TYPE=${BUILD_TYPE}
    -DCMAKE_PREFIX_PATH=${prefix}
    -DQt6_DIR=${QT_DIR})
run(${CMAKE_COMMAND} --build ${WORK_DIR}/build --config ${BUILD_TYPE})
find_program(consumer NAMES consumer PATHS ${WORK_DIR}/build ${WORK_DIR}/build/${BUILD_TYPE}
    NO_DEFAULT_PATH REQUIRED)
run(${consumer})
