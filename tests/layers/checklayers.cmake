# Fails when a source includes a header of a layer above its own. The library's layers run
# core <- model <- types <- views/dialogs <- shell <- workbench; ribdock uses nothing of the
# library, and the library reaches ribdock only from shell and views (and the item types'
# edit, which opens editors in the document area).
# Usage: cmake -DSOURCE_DIR=<repository> -P checklayers.cmake
cmake_minimum_required(VERSION 3.21)
if(NOT SOURCE_DIR)
    message(FATAL_ERROR "checklayers: SOURCE_DIR is not set")
endif()

set(rank_core 0)
set(rank_model 1)
set(rank_types 2)
set(rank_views 3)
set(rank_dialogs 3)
set(rank_shell 4)
set(rank_workbench 5)
set(framework_folders core model types views dialogs shell)
# The one edge still pointing up: the type registry and the item tree call each node's
# ItemType, whose class is the root of the types layer. Only these sources may include it;
# no other upward include is allowed.
set(allowed_upward
    framework/core/defaultaggregatable.cpp:types/itemtype.h
    framework/core/typeregistrar.cpp:types/itemtype.h
    framework/model/itemutils.cpp:types/itemtype.h
    framework/model/viewitem.cpp:types/itemtype.h
    framework/model/viewitembase_p.h:types/itemtype.h
    framework/model/viewmodel.cpp:types/itemtype.h)

# Ribdock headers are matched by path or by bare file name.
file(GLOB_RECURSE ribdock_headers RELATIVE ${SOURCE_DIR}/ribdock ${SOURCE_DIR}/ribdock/*.h)
set(ribdock_names)
foreach(header IN LISTS ribdock_headers)
    get_filename_component(name ${header} NAME)
    list(APPEND ribdock_names ${name})
endforeach()

file(GLOB_RECURSE sources RELATIVE ${SOURCE_DIR}
    ${SOURCE_DIR}/framework/*.h ${SOURCE_DIR}/framework/*.cpp
    ${SOURCE_DIR}/ribdock/*.h ${SOURCE_DIR}/ribdock/*.cpp
    ${SOURCE_DIR}/workbench/*.h ${SOURCE_DIR}/workbench/*.cpp)

set(violations)
foreach(source IN LISTS sources)
    string(REPLACE "/" ";" parts ${source})
    list(GET parts 0 top)
    list(LENGTH parts depth)
    if(top STREQUAL "framework")
        if(depth LESS 3)
            continue() # the umbrella header and the export header sit above every layer
        endif()
        list(GET parts 1 layer)
    else()
        set(layer ${top})
    endif()

    file(STRINGS ${SOURCE_DIR}/${source} includes REGEX "^[ \t]*#[ \t]*include[ \t]*[<\"]")
    foreach(line IN LISTS includes)
        string(REGEX REPLACE "^[ \t]*#[ \t]*include[ \t]*[<\"]([^>\"]+)[>\"].*$" "\\1" included "${line}")
        string(REGEX REPLACE "^velmoraframework/" "" included "${included}")
        string(REPLACE "/" ";" included_parts "${included}")
        list(GET included_parts 0 target)
        get_filename_component(included_name "${included}" NAME)

        set(is_ribdock OFF)
        if(target STREQUAL "ribdock" OR included_name IN_LIST ribdock_names)
            set(is_ribdock ON)
        endif()
        set(is_framework OFF)
        if(target IN_LIST framework_folders OR included_name MATCHES "^velmoraframework")
            set(is_framework ON)
        endif()

        if(layer STREQUAL "ribdock")
            if(is_framework)
                list(APPEND violations "${source}: ribdock includes the library's ${included}")
            endif()
        elseif(is_ribdock)
            # Item types open their editors as tabs of the document area's content widget.
            if(layer STREQUAL "types" AND included_name STREQUAL "dockcontentwidget.h")
                continue()
            endif()
            if(NOT layer MATCHES "^(shell|views|workbench)$")
                list(APPEND violations "${source}: ${layer} includes ribdock's ${included}")
            endif()
        elseif(DEFINED rank_${target} AND DEFINED rank_${layer})
            if(rank_${target} GREATER rank_${layer}
                    AND NOT "${source}:${included}" IN_LIST allowed_upward)
                list(APPEND violations "${source}: ${layer} includes ${included} of the higher layer ${target}")
            endif()
        endif()
    endforeach()
endforeach()

if(violations)
    list(JOIN violations "\n" text)
    message(FATAL_ERROR "Includes against the layers:\n${text}")
endif()
list(LENGTH sources count)
message(STATUS "checklayers: ${count} sources keep to their layers")
