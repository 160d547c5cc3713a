# No heap, no exceptions, no RTTI: what every product file is compiled with. Nothing is ever unwound, and a debugger
# has tables of its own. Position-independent, whatever the compiler's default: connections come from the network.
set(CONSOLE_PRODUCT_OPTIONS -fno-exceptions -fno-rtti -fno-threadsafe-statics
  -fno-asynchronous-unwind-tables -fno-unwind-tables -fPIE)

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
  add_library(${name} STATIC ${LAYER_SOURCES})
  target_include_directories(${name} PUBLIC ${door})
  target_compile_options(${name} PRIVATE ${CONSOLE_PRODUCT_OPTIONS})
  target_link_libraries(${name} PUBLIC ${LAYER_USES})
endfunction()
