# SPDX-License-Identifier: MIT
# The translation catalogues are current and whole: lupdate, run on a copy of
# each from the sources, finds no text it lacks and none it holds too many,
# and every text has its translation.
#   cmake -DLUPDATE=<lupdate> -DROOT=<source tree> -DWORK=<folder> -P CheckCatalogues.cmake
set(faults "")

function(check catalogue)
    get_filename_component(name ${catalogue} NAME)
    set(copy ${WORK}/${name})
    file(COPY_FILE ${ROOT}/${catalogue} ${copy})
    set(sources "")
    foreach(folder ${ARGN})
        list(APPEND sources ${ROOT}/${folder})
    endforeach()
    execute_process(COMMAND ${LUPDATE} -silent -no-obsolete -locations none -I ${ROOT}/src -I ${ROOT}/include
                            ${sources} -ts ${copy}
                    RESULT_VARIABLE failed)
    file(READ ${ROOT}/${catalogue} kept)
    file(READ ${copy} current)
    string(REGEX MATCHALL "<message" kept_messages "${kept}")
    string(REGEX MATCHALL "<message" current_messages "${current}")
    list(LENGTH kept_messages kept_count)
    list(LENGTH current_messages current_count)
    if(failed OR NOT kept_count EQUAL current_count OR current MATCHES "type=\"(unfinished|vanished|obsolete)\"")
        set(faults "${faults}${catalogue}: ${kept_count} texts kept, ${current_count} in the sources, or some untranslated: run lupdate (cmake --build build --target update_translations) and translate\n" PARENT_SCOPE)
    endif()
endfunction()

file(MAKE_DIRECTORY ${WORK})
check(translations/zolt_en.ts src/core src/widgets)
check(examples/zolt-demo/translations/zolt-demo_en.ts examples/zolt-demo)
if(faults)
    message(FATAL_ERROR "${faults}")
endif()
