# SPDX-License-Identifier: MIT
# Installs the built library into WORK/prefix, then configures, builds and
# runs against it, compiled with the same FLAGS (a sanitized library wants a
# sanitized host): the host project in HOST, and the application of the
# host's guide GUIDE, made of its code blocks marked "file:" exactly as they
# stand, run twice with --setup (the second run must change nothing and still
# succeed).
file(REMOVE_RECURSE ${WORK})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/prefix OUTPUT_QUIET
                COMMAND_ERROR_IS_FATAL ANY)

# The guide's files: each block's first line names its file; blocks of the
# same file follow one another in it.
file(READ ${GUIDE} guide)
# A CMake list would split the code at ";" and bind it at brackets: they
# travel as placeholders.
string(REPLACE ";" "@semicolon@" guide "${guide}")
string(REPLACE "[" "@open@" guide "${guide}")
string(REPLACE "]" "@close@" guide "${guide}")
string(REGEX MATCHALL "```[a-z]+\n(#|//) file: [^\n]+\n[^`]*```" blocks "${guide}")
foreach(block IN LISTS blocks)
    string(REGEX MATCH "file: ([^\n]+)\n" _ "${block}")
    set(name ${CMAKE_MATCH_1})
    string(REGEX REPLACE "^```[a-z]+\n[^\n]*\n" "" code "${block}")
    string(REGEX REPLACE "```$" "" code "${code}")
    string(REPLACE "@semicolon@" ";" code "${code}")
    string(REPLACE "@open@" "[" code "${code}")
    string(REPLACE "@close@" "]" code "${code}")
    file(APPEND ${WORK}/guide/${name} "${code}")
endforeach()
if(NOT EXISTS ${WORK}/guide/CMakeLists.txt OR NOT EXISTS ${WORK}/guide/main.cpp)
    message(FATAL_ERROR "the guide's walk-through has no CMakeLists.txt or main.cpp")
endif()

include(${CMAKE_CURRENT_LIST_DIR}/BuildHost.cmake)
build_host(${HOST} ${WORK}/build-install ${WORK}/prefix "${FLAGS}")
build_host(${WORK}/guide ${WORK}/build-guide ${WORK}/prefix "${FLAGS}")
execute_process(COMMAND ${WORK}/build-install/zolt-host COMMAND_ERROR_IS_FATAL ANY)
set(ENV{QT_QPA_PLATFORM} offscreen)
foreach(run 1 2)
    execute_process(COMMAND ${WORK}/build-guide/salesapp ${WORK}/sales.db --setup COMMAND_ERROR_IS_FATAL ANY)
endforeach()
