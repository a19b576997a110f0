# Installs the built tree into a fresh prefix, builds the consumer program against what was
# installed (CMake package and pkg-config) and runs it.
# cmake -DBUILD_DIR=<build> -DWORK_DIR=<scratch> -DSOURCE_DIR=<tests/consumer>
#       [-DCONSUMER_FLAGS=<compile and link flags>] -P InstallAndBuild.cmake
function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "failed (${result}): ${ARGN}")
    endif()
endfunction()

set(prefix ${WORK_DIR}/prefix)
file(REMOVE_RECURSE ${WORK_DIR})
run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix})
foreach(file IN ITEMS include/zolmar/connection/cConexion.h include/zolmar/platform/variant/Variant.h)
    if(NOT EXISTS ${prefix}/${file})
        message(FATAL_ERROR "not installed: ${file}")
    endif()
endforeach()
file(GLOB_RECURSE pc ${prefix}/zolmar.pc)
file(GLOB program ${prefix}/bin/zolmar)
file(GLOB demo ${prefix}/bin/zolmar-demo)
if(NOT pc OR NOT program OR NOT demo)
    message(FATAL_ERROR "zolmar.pc, the zolmar program or zolmar-demo is missing from ${prefix}")
endif()
get_filename_component(pc_dir ${pc} DIRECTORY)
run(${program} --version)
# The installed demo finds the installed library (its help needs no display and no database).
run(${demo} --help)

set(ENV{PKG_CONFIG_PATH} ${pc_dir})
run(${CMAKE_COMMAND} -S ${SOURCE_DIR} -B ${WORK_DIR}/build -DCMAKE_PREFIX_PATH=${prefix}
    "-DCMAKE_CXX_FLAGS=${CONSUMER_FLAGS}" "-DCMAKE_EXE_LINKER_FLAGS=${CONSUMER_FLAGS}")
run(${CMAKE_COMMAND} --build ${WORK_DIR}/build)
run(${WORK_DIR}/build/consumer_package)
run(${WORK_DIR}/build/consumer_pkgconfig)
