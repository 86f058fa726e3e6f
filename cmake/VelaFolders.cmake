# One object library for each source folder, so that a folder builds, and a test links, with nothing but what
# lies beneath it.

# vela_folder(NAME [FOLDER dir] [LINK targets…]): the sources of a folder as the object library NAME.
function(vela_folder name)
    cmake_parse_arguments(ARG "RECURSE" "FOLDER" "LINK;EXCLUDE" ${ARGN})
    if(NOT ARG_FOLDER)
        set(ARG_FOLDER ${name})
    endif()
    if(ARG_RECURSE)
        file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${ARG_FOLDER}/*.cpp)
    else()
        file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${ARG_FOLDER}/*.cpp)
    endif()
    foreach(excluded ${ARG_EXCLUDE})
        list(FILTER sources EXCLUDE REGEX "${excluded}$")
    endforeach()
    if(NOT sources)
        add_library(${name} INTERFACE)
        target_link_libraries(${name} INTERFACE ${ARG_LINK})
        return()
    endif()
    add_library(${name} OBJECT ${sources})
    target_link_libraries(${name} PUBLIC ${ARG_LINK})
    target_precompile_headers(${name} PRIVATE <algorithm> <functional> <map> <memory> <optional> <string>
                              <unordered_map> <variant> <vector>)
endfunction()

# vela_link(TARGET folders…): links object libraries, each with its own objects.
function(vela_link target)
    target_link_libraries(${target} PRIVATE ${ARGN})
endfunction()

# vela_test(NAME [FOLDER dir] LINK folders… [ALONE filters…]): the tests of a folder as one program. Beside those that
# pass one of the filters no other test runs: they measure time and memory.
function(vela_test name)
    cmake_parse_arguments(ARG "" "FOLDER" "LINK;LIBRARIES;DEFINITIONS;ALONE" ${ARGN})
    if(NOT ARG_FOLDER)
        set(ARG_FOLDER ${name})
    endif()
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${ARG_FOLDER}/*.cpp)
    if(NOT sources)
        return()
    endif()
    add_executable(${name} ${sources})
    vela_link(${name} ${ARG_LINK})
    target_link_libraries(${name} PRIVATE ${ARG_LIBRARIES} GTest::gtest GTest::gmock GTest::gtest_main
                          Threads::Threads)
    target_compile_definitions(${name} PRIVATE VELA_SOURCE_DIR="${CMAKE_SOURCE_DIR}"
                               VELA_BINARY_DIR="${CMAKE_BINARY_DIR}" ${ARG_DEFINITIONS})
    list(JOIN ARG_ALONE ":" alone)
    set(timeout 120)
    if(VELA_SANITIZE)
        set(timeout 900) # everything takes several times as long
    endif()
    set(properties DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT ${timeout})
    if(NOT alone)
        gtest_discover_tests(${name} ${properties})
    else()
        gtest_discover_tests(${name} TEST_FILTER "-${alone}" ${properties})
        if(NOT VELA_SANITIZE) # which would be what they measure
            gtest_discover_tests(${name} TEST_FILTER "${alone}" TEST_LIST ${name}_ALONE ${properties} RUN_SERIAL ON)
        endif()
    endif()
endfunction()
