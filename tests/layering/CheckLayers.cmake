# SPDX-License-Identifier: MIT
# The library's folders are its layers: cmake -DROOT=<tree> -DQT_HEADERS=<Qt's
# include folder> -P CheckLayers.cmake fails, naming each file and include,
# when a file includes from a folder above its own in the order below, or a
# file of the widget-free core includes a header of Qt's Gui or Widgets.
# Within a folder and from any folder below, every include is allowed.
set(layers
    core/base         # conversions, errors, logging
    core/platform     # initialisation files, the registry store, unixODBC's files
    core/text         # Vietnamese text: folding, legacy encodings, syllables, indexes
    core/database     # the connection, record sets, the engines' SQL, schema, options
    core/search       # the search wizard's catalogue and literals
    core/logon        # passwords, logon limits, menu rights, the locked server
    widgets/platform  # key synthesis, system colours
    widgets/desktop   # dialog set-up, key preview, list helpers, Tesmir
    widgets/controls
    widgets/msgbox
    widgets/search
    widgets/logon
    widgets/menus)

file(GLOB gui_headers RELATIVE ${QT_HEADERS}/QtGui ${QT_HEADERS}/QtGui/*)
file(GLOB widgets_headers RELATIVE ${QT_HEADERS}/QtWidgets ${QT_HEADERS}/QtWidgets/*)
set(forbidden_in_core ${gui_headers} ${widgets_headers} QtGui QtWidgets)

set(faults "")
foreach(layer IN LISTS layers)
    list(FIND layers ${layer} rank)
    file(GLOB_RECURSE files RELATIVE ${ROOT}/src ${ROOT}/src/${layer}/*.h ${ROOT}/src/${layer}/*.cpp)
    foreach(file IN LISTS files)
        file(STRINGS ${ROOT}/src/${file} includes REGEX "^#include ")
        foreach(include IN LISTS includes)
            if(include MATCHES "^#include \"([a-z]+/[a-z]+)/[^\"]+\"")
                list(FIND layers ${CMAKE_MATCH_1} included)
                if(included GREATER rank)
                    string(APPEND faults "${file}: ${include} reaches up from ${layer} to ${CMAKE_MATCH_1}\n")
                endif()
            elseif(layer MATCHES "^core/" AND include MATCHES "^#include <(Qt[A-Za-z]+/)?([A-Za-z0-9_.]+)>")
                list(FIND forbidden_in_core ${CMAKE_MATCH_2} widget)
                if(widget GREATER -1)
                    string(APPEND faults "${file}: ${include} is a header of Qt's Gui or Widgets, in the widget-free core\n")
                endif()
            endif()
        endforeach()
    endforeach()
endforeach()

# Every file of the library is in one of the layers.
file(GLOB_RECURSE all RELATIVE ${ROOT}/src ${ROOT}/src/core/*.h ${ROOT}/src/core/*.cpp ${ROOT}/src/widgets/*.h ${ROOT}/src/widgets/*.cpp)
foreach(file IN LISTS all)
    string(REGEX MATCH "^[a-z]+/[a-z]+" folder ${file})
    list(FIND layers "${folder}" rank)
    if(rank EQUAL -1)
        string(APPEND faults "${file}: in no layer\n")
    endif()
endforeach()

if(faults)
    message(NOTICE "${faults}")
    message(FATAL_ERROR "Includes against the layers (above).")
endif()
