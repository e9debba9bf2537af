# SPDX-License-Identifier: MIT
# Makes the Debian packages of the build in BUILD, unpacks the shared library
# and the development package into WORK/root as a host developer's machine
# would hold them (anywhere: the CMake and pkg-config files are relocatable),
# then builds the host in HOST against them twice, with CMake and with
# pkg-config, compiled with the same FLAGS, and runs both.
file(REMOVE_RECURSE ${WORK})
execute_process(COMMAND cpack -G DEB -B ${WORK}/packages --config ${BUILD}/CPackConfig.cmake
                OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
foreach(package libzolt0 libzolt-dev)
    file(GLOB deb ${WORK}/packages/${package}_*.deb)
    execute_process(COMMAND dpkg-deb -x ${deb} ${WORK}/root COMMAND_ERROR_IS_FATAL ANY)
endforeach()
set(root ${WORK}/root/usr)
file(GLOB_RECURSE pc_file ${root}/*/zolt.pc)
get_filename_component(pc_dir ${pc_file} DIRECTORY)
get_filename_component(libdir ${pc_dir} DIRECTORY)

# With CMake.
include(${CMAKE_CURRENT_LIST_DIR}/BuildHost.cmake)
build_host(${HOST} ${WORK}/cmake-host ${root} "${FLAGS}")

# With pkg-config, the way a Makefile would.
set(ENV{PKG_CONFIG_PATH} ${pc_dir})
execute_process(COMMAND pkg-config --cflags --libs zolt OUTPUT_VARIABLE pkg OUTPUT_STRIP_TRAILING_WHITESPACE
                COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND pkg-config --variable=datadir zolt OUTPUT_VARIABLE datadir OUTPUT_STRIP_TRAILING_WHITESPACE
                COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND pkg-config --variable=translationsdir zolt OUTPUT_VARIABLE translations
                OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
separate_arguments(pkg UNIX_COMMAND "${pkg}")
separate_arguments(flags UNIX_COMMAND "${FLAGS}")
# The form through Qt's uic, as a Makefile would run it.
execute_process(COMMAND qtpaths6 --query QT_HOST_LIBEXECS OUTPUT_VARIABLE libexec OUTPUT_STRIP_TRAILING_WHITESPACE
                COMMAND_ERROR_IS_FATAL ANY)
file(MAKE_DIRECTORY ${WORK}/ui)
execute_process(COMMAND ${libexec}/uic ${HOST}/SearchForm.ui -o ${WORK}/ui/ui_SearchForm.h COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND c++ -std=c++20 -fPIC ${flags} ${HOST}/HostMain.cpp -o ${WORK}/pkg-config-host -I${WORK}/ui
                        "-DZOLT_SCHEMA=\"${datadir}/zolt-sqlite.sql\"" "-DZOLT_TRANSLATIONS=\"${translations}\"" ${pkg} -ldl
                COMMAND_ERROR_IS_FATAL ANY)

set(ENV{LD_LIBRARY_PATH} ${libdir})
foreach(host ${WORK}/cmake-host/zolt-host ${WORK}/pkg-config-host)
    execute_process(COMMAND ${host} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
