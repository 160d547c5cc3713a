include(CheckCXXCompilerFlag)
include(CheckCXXSourceCompiles)

# No heap, no exceptions, no RTTI: what every product file is compiled with. Nothing is ever unwound, and a debugger
# has tables of its own.
set(CONSOLE_PRODUCT_OPTIONS -fno-exceptions -fno-rtti -fno-threadsafe-statics
  -fno-asynchronous-unwind-tables -fno-unwind-tables -fPIE)
set(CONSOLE_LINK_OPTIONS -pie)

# Connections come from the network, and the console runs as root: what ships is hardened as far as its compiler can,
# whatever the compiler's default. All addresses are bound at the start, so that no call needs a detour through a table
# that can be written to.
if(CMAKE_BUILD_TYPE STREQUAL MinSizeRel)
  list(APPEND CONSOLE_PRODUCT_OPTIONS -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2 -fno-plt)
  list(APPEND CONSOLE_LINK_OPTIONS -Wl,-z,relro,-z,now)
  check_cxx_compiler_flag(-fcf-protection CONSOLE_HAS_CONTROL_FLOW_PROTECTION)
  if(CONSOLE_HAS_CONTROL_FLOW_PROTECTION)
    # The C library's start files do not carry the mark, so that the linker would leave it out.
    list(APPEND CONSOLE_PRODUCT_OPTIONS -fcf-protection)
    list(APPEND CONSOLE_LINK_OPTIONS -Wl,-z,ibt,-z,shstk)
  endif()
  if(CMAKE_SYSTEM_PROCESSOR STREQUAL arm)
    # -strong guards twice the functions there, at 70 bytes each, and would not fit the budget. Its stack clash
    # protection is about arrays of a size known at run time only, of which there are none.
    list(APPEND CONSOLE_PRODUCT_OPTIONS -fstack-protector)
  else()
    list(APPEND CONSOLE_PRODUCT_OPTIONS -fstack-protector-strong -fstack-clash-protection)
  endif()
  # The room for it: relocations as a bitmap (C library 2.36 or later), where the linker can, and code optimised as one.
  set(CMAKE_REQUIRED_LINK_OPTIONS -Wl,--fatal-warnings,-z,pack-relative-relocs)
  check_cxx_source_compiles("int main() {}" CONSOLE_HAS_PACKED_RELOCATIONS)
  unset(CMAKE_REQUIRED_LINK_OPTIONS)
  if(CONSOLE_HAS_PACKED_RELOCATIONS)
    list(APPEND CONSOLE_LINK_OPTIONS -Wl,-z,pack-relative-relocs)
  endif()
endif()

# add_layer(NAME FOLDER SOURCES... USES LAYERS...)
#
# One static library per layer. A layer's headers are found through a folder that holds a link to that layer
# alone ("config/segment.h" resolves in any layer that names `config` below it, and nowhere else), so that an
# include that points upwards does not compile, and a call that points upwards does not link.
function(add_layer name folder)
  cmake_parse_arguments(LAYER "" "" "SOURCES;USES" ${ARGN})
  set(door ${CMAKE_BINARY_DIR}/layers/${name})
  get_filename_component(parent ${door}/${folder} DIRECTORY)
  file(MAKE_DIRECTORY ${parent})
  file(CREATE_LINK ${CMAKE_SOURCE_DIR}/${folder} ${door}/${folder} SYMBOLIC)
  if(NOT LAYER_SOURCES)  # headers only
    add_library(${name} INTERFACE)
    target_include_directories(${name} INTERFACE ${door})
    return()
  endif()
  add_library(${name} STATIC ${LAYER_SOURCES})
  target_include_directories(${name} PUBLIC ${door})
  target_compile_options(${name} PRIVATE ${CONSOLE_PRODUCT_OPTIONS})
  target_link_libraries(${name} PUBLIC ${LAYER_USES})
  set_target_properties(${name} PROPERTIES INTERPROCEDURAL_OPTIMIZATION_MINSIZEREL ON)
endfunction()
