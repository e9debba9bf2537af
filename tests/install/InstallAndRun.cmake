# SPDX-License-Identifier: MIT
# Installs the built library into WORK/prefix, then configures, builds and
# runs the host project in HOST against it, compiled with the same FLAGS
# (a sanitized library wants a sanitized host).
file(REMOVE_RECURSE ${WORK})
foreach(step
        "--install;${BUILD};--prefix;${WORK}/prefix"
        "-S;${HOST};-B;${WORK}/host;-G;Ninja;-DCMAKE_PREFIX_PATH=${WORK}/prefix;-DCMAKE_CXX_FLAGS=${FLAGS};-DCMAKE_EXE_LINKER_FLAGS=${FLAGS}"
        "--build;${WORK}/host")
    execute_process(COMMAND ${CMAKE_COMMAND} ${step} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
execute_process(COMMAND ${WORK}/host/zolt-host COMMAND_ERROR_IS_FATAL ANY)
