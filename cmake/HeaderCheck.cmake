# Each header compiles alone: a source of one line for each, compiled with all the others and linked into nothing.
function(marlux_check_headers name)
  set(sources)
  foreach(folder IN LISTS ARGN)
    file(GLOB headers CONFIGURE_DEPENDS RELATIVE ${CMAKE_SOURCE_DIR} ${CMAKE_SOURCE_DIR}/${folder}/*.h)
    foreach(header IN LISTS headers)
      set(source ${CMAKE_BINARY_DIR}/header-check/${header}.cpp)
      file(CONFIGURE OUTPUT ${source} CONTENT "#include \"@header@\"\n" @ONLY)  # untouched when it is there already
      list(APPEND sources ${source})
    endforeach()
  endforeach()
  add_library(${name} OBJECT ${sources})
  target_link_libraries(${name} PRIVATE marlux_options)
  target_compile_options(${name} PRIVATE -O0 -g0)  # only the errors are of interest
endfunction()

marlux_check_headers(header-check foundation toolkit schedule plugin scheduler download app host gallery)
