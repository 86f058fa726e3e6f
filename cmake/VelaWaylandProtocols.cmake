# The code that speaks a Wayland protocol, made from the protocol's description.

pkg_check_modules(WAYLAND REQUIRED IMPORTED_TARGET wayland-client xkbcommon gio-unix-2.0)
pkg_get_variable(WAYLAND_SCANNER wayland-scanner wayland_scanner)
pkg_get_variable(WAYLAND_PROTOCOLS wayland-protocols pkgdatadir)

# Where the descriptions of the protocols of wlroots lie: Debian has them in librust-wayland-protocols-dev, whose folder
# is named after its version.
file(GLOB VELA_WLR_PROTOCOL_FOLDERS /usr/share/wlr-protocols/unstable
     /usr/share/cargo/registry/wayland-protocols-*/wlr-protocols/unstable)
list(APPEND VELA_WLR_PROTOCOL_FOLDERS "") # so that there is a first one
list(GET VELA_WLR_PROTOCOL_FOLDERS 0 found)
set(VELA_WLR_PROTOCOLS "${found}" CACHE PATH "Folder of the wlr protocols' descriptions")

# vela_wayland_protocols(NAME descriptions…): the client's side of protocols as the object library NAME.
function(vela_wayland_protocols name)
    set(folder ${CMAKE_CURRENT_BINARY_DIR}/protocols)
    file(MAKE_DIRECTORY ${folder})
    foreach(description ${ARGN})
        get_filename_component(protocol ${description} NAME_WE)
        set(header ${folder}/${protocol}-client-protocol.h)
        set(code ${folder}/${protocol}-protocol.c)
        add_custom_command(OUTPUT ${header} DEPENDS ${description} VERBATIM
                           COMMAND ${WAYLAND_SCANNER} client-header ${description} ${header})
        add_custom_command(OUTPUT ${code} DEPENDS ${description} VERBATIM
                           COMMAND ${WAYLAND_SCANNER} private-code ${description} ${code})
        list(APPEND sources ${header} ${code})
    endforeach()
    add_library(${name} OBJECT ${sources})
    target_include_directories(${name} SYSTEM PUBLIC ${folder})
    target_link_libraries(${name} PUBLIC PkgConfig::WAYLAND)
endfunction()

# vela_wayland_server_headers(NAME descriptions…): adds what a compositor includes to protocols made by the above.
function(vela_wayland_server_headers name)
    foreach(description ${ARGN})
        get_filename_component(protocol ${description} NAME_WE)
        set(header ${CMAKE_CURRENT_BINARY_DIR}/protocols/${protocol}-server-protocol.h)
        add_custom_command(OUTPUT ${header} DEPENDS ${description} VERBATIM
                           COMMAND ${WAYLAND_SCANNER} server-header ${description} ${header})
        target_sources(${name} PRIVATE ${header})
    endforeach()
endfunction()
