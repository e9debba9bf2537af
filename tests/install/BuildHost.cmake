# SPDX-License-Identifier: MIT
# Configures and builds the CMake project in source into build against the
# library installed under prefix, compiled and linked with flags.
function(build_host source build prefix flags)
    foreach(step
            "-S;${source};-B;${build};-G;Ninja;-DCMAKE_PREFIX_PATH=${prefix};-DCMAKE_CXX_FLAGS=${flags};-DCMAKE_EXE_LINKER_FLAGS=${flags}"
            "--build;${build}")
        execute_process(COMMAND ${CMAKE_COMMAND} ${step} OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
    endforeach()
endfunction()
