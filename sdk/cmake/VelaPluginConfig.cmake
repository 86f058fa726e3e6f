# The CMake package VelaPlugin: how plug-ins are built, from an installed SDK and within Vela's own tree alike.
#
# Defines the target Vela::Plugin (where VelaPlugin.h lies; there is nothing to link) and vela_add_plugin().

set(_vela_sdk "${CMAKE_CURRENT_LIST_DIR}/..")
set(_vela_template "${_vela_sdk}/template")
if(EXISTS "${_vela_sdk}/VelaPlugin.h")
    set(_vela_include "${_vela_sdk}") # the source tree
else()
    set(_vela_include "${_vela_sdk}/../../include")
endif()
get_filename_component(VELA_PLUGIN_INCLUDE_DIR "${_vela_include}" ABSOLUTE)
set(VELA_PLUGIN_DEFAULT_INFO "${_vela_template}/Info.plist.in")
set(VELA_PLUGIN_DEFAULT_ICON "${_vela_template}/icon.png")

# The number of the contract is the header's own.
file(STRINGS "${VELA_PLUGIN_INCLUDE_DIR}/VelaPlugin.h" _vela_line REGEX "^#define VELA_PLUGIN_ABI [0-9]+$")
string(REGEX REPLACE "[^0-9]" "" VELA_PLUGIN_ABI "${_vela_line}")
if(VELA_PLUGIN_ABI STREQUAL "")
    set(VelaPlugin_FOUND FALSE)
    set(VelaPlugin_NOT_FOUND_MESSAGE "VelaPlugin.h in ${VELA_PLUGIN_INCLUDE_DIR} names no VELA_PLUGIN_ABI")
    return()
endif()

if(NOT TARGET Vela::Plugin)
    add_library(Vela::Plugin INTERFACE IMPORTED GLOBAL)
    target_include_directories(Vela::Plugin INTERFACE "${VELA_PLUGIN_INCLUDE_DIR}")
    target_compile_features(Vela::Plugin INTERFACE cxx_std_20)
endif()

# Where plug-ins lie on the phone.
set(VELA_PLUGIN_DEVICE_DIRECTORY "/Library/Application Support/Vela/Plugins")

# The same directory of the phone of this machine's user, where `cmake --install` puts a plug-in. An embedding
# project that installs by its own rules sets it to OFF.
if(NOT DEFINED VELA_PLUGIN_INSTALL_DIRECTORY)
    set(_vela_data "$ENV{XDG_DATA_HOME}")
    if(NOT IS_ABSOLUTE "${_vela_data}")
        set(_vela_data "$ENV{HOME}/.local/share")
    endif()
    set(VELA_PLUGIN_INSTALL_DIRECTORY "${_vela_data}/vela3/device${VELA_PLUGIN_DEVICE_DIRECTORY}"
        CACHE PATH "The phone's plug-in directory, where plug-ins are installed")
endif()

function(_vela_escape_xml text result)
    string(REPLACE "&" "&amp;" text "${text}")
    string(REPLACE "<" "&lt;" text "${text}")
    string(REPLACE ">" "&gt;" text "${text}")
    set(${result} "${text}" PARENT_SCOPE)
endfunction()

# Copies a file into the bundle whenever it changes.
function(_vela_copy_into bundle name source)
    get_filename_component(source "${source}" ABSOLUTE)
    configure_file("${source}" "${bundle}/${name}" COPYONLY)
endfunction()

# Copies a picture and its finer variants, "icon@2x.png" beside "icon.png".
function(_vela_copy_icon bundle source)
    get_filename_component(source "${source}" ABSOLUTE)
    get_filename_component(folder "${source}" DIRECTORY)
    get_filename_component(stem "${source}" NAME_WLE)
    get_filename_component(suffix "${source}" LAST_EXT)
    _vela_copy_into("${bundle}" "icon${suffix}" "${source}")
    foreach(scale 2 3)
        if(EXISTS "${folder}/${stem}@${scale}x${suffix}")
            _vela_copy_into("${bundle}" "icon@${scale}x${suffix}" "${folder}/${stem}@${scale}x${suffix}")
        endif()
    endforeach()
endfunction()

# vela_add_plugin(NAME IDENTIFIER org.example.name DISPLAY_NAME "Name" PRINCIPAL_CLASS NameView SOURCES file.cpp…
#                 [ICON icon.png] [GUIDE guide.txt] [RESOURCES file…] [INFO_PLIST Info.plist.in] [HIDDEN])
#
# Builds the plug-in NAME as the bundle NAME.bundle, in the current binary directory or in
# VELA_PLUGIN_OUTPUT_DIRECTORY. ICON, GUIDE and INFO_PLIST default to icon.png, guide.txt and Info.plist.in of the
# current source directory, where these exist. RESOURCES keep their path below the current source directory.
# The target's property VELA_PLUGIN_BUNDLE is the bundle's path.
function(vela_add_plugin name)
    cmake_parse_arguments(ARG "HIDDEN" "IDENTIFIER;DISPLAY_NAME;PRINCIPAL_CLASS;ICON;GUIDE;INFO_PLIST"
                          "SOURCES;RESOURCES" ${ARGN})
    foreach(needed IDENTIFIER DISPLAY_NAME PRINCIPAL_CLASS SOURCES)
        if(NOT ARG_${needed})
            message(FATAL_ERROR "vela_add_plugin(${name}): ${needed} is missing")
        endif()
    endforeach()
    if(ARG_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "vela_add_plugin(${name}): what is \"${ARG_UNPARSED_ARGUMENTS}\"?")
    endif()
    set(ARG_ICON_DEFAULT icon.png)
    set(ARG_GUIDE_DEFAULT guide.txt)
    set(ARG_INFO_PLIST_DEFAULT Info.plist.in)
    foreach(file ICON GUIDE INFO_PLIST)
        if(NOT ARG_${file} AND EXISTS "${CMAKE_CURRENT_SOURCE_DIR}/${ARG_${file}_DEFAULT}")
            set(ARG_${file} "${ARG_${file}_DEFAULT}")
        endif()
    endforeach()
    if(NOT ARG_ICON)
        set(ARG_ICON "${VELA_PLUGIN_DEFAULT_ICON}")
    endif()
    if(NOT ARG_INFO_PLIST)
        set(ARG_INFO_PLIST "${VELA_PLUGIN_DEFAULT_INFO}")
    endif()

    set(output "${VELA_PLUGIN_OUTPUT_DIRECTORY}")
    if(NOT output)
        set(output "${CMAKE_CURRENT_BINARY_DIR}")
    endif()
    set(bundle "${output}/${name}.bundle")

    add_library(${name} MODULE ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE Vela::Plugin)
    # Nothing of one plug-in is to be taken for the same thing of another.
    set_target_properties(${name} PROPERTIES PREFIX "" SUFFIX ".so" CXX_VISIBILITY_PRESET hidden
                          VISIBILITY_INLINES_HIDDEN ON LIBRARY_OUTPUT_DIRECTORY "${bundle}"
                          VELA_PLUGIN_BUNDLE "${bundle}")
    foreach(configuration ${CMAKE_CONFIGURATION_TYPES})
        string(TOUPPER "${configuration}" configuration)
        set_target_properties(${name} PROPERTIES LIBRARY_OUTPUT_DIRECTORY_${configuration} "${bundle}")
    endforeach()
    target_compile_options(${name} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fno-gnu-unique>)
    if(NOT CMAKE_CXX_FLAGS MATCHES "-fsanitize" AND NOT VELA_SANITIZE)
        # What is missing is to be noticed here, not when the phone opens the tile.
        target_link_options(${name} PRIVATE -Wl,-z,defs)
    endif()

    foreach(key IDENTIFIER DISPLAY_NAME PRINCIPAL_CLASS)
        _vela_escape_xml("${ARG_${key}}" VELA_PLUGIN_${key})
    endforeach()
    set(VELA_PLUGIN_EXECUTABLE "${name}.so")
    get_filename_component(suffix "${ARG_ICON}" LAST_EXT)
    set(VELA_PLUGIN_ICON "${VELA_PLUGIN_DEVICE_DIRECTORY}/${name}.bundle/icon${suffix}")
    set(VELA_PLUGIN_HIDDEN false)
    if(ARG_HIDDEN)
        set(VELA_PLUGIN_HIDDEN true)
    endif()
    configure_file("${ARG_INFO_PLIST}" "${bundle}/Info.plist" @ONLY)
    _vela_copy_icon("${bundle}" "${ARG_ICON}")
    if(ARG_GUIDE)
        _vela_copy_into("${bundle}" guide.txt "${ARG_GUIDE}")
    endif()
    foreach(resource ${ARG_RESOURCES})
        _vela_copy_into("${bundle}" "${resource}" "${resource}")
    endforeach()

    if(VELA_PLUGIN_INSTALL_DIRECTORY)
        install(DIRECTORY "${bundle}" DESTINATION "${VELA_PLUGIN_INSTALL_DIRECTORY}" USE_SOURCE_PERMISSIONS)
    endif()
endfunction()
