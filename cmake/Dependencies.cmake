# zlib comes as a package of the cross toolchain. minizip does not: scripts/setup.sh leaves the distribution's source,
# checked against its checksum, in build/third_party/minizip, unless MINIZIP_SOURCE_DIR names another place.
set(ZLIB_USE_STATIC_LIBS ON)  # the module is one file
find_package(ZLIB REQUIRED)
set(MINIZIP_SOURCE_DIR "${CMAKE_SOURCE_DIR}/build/third_party/minizip" CACHE PATH "unpacked minizip source")
if(NOT EXISTS "${MINIZIP_SOURCE_DIR}/unzip.c")
  message(FATAL_ERROR "no minizip source in ${MINIZIP_SOURCE_DIR}: run scripts/setup.sh")
endif()
add_library(minizip STATIC EXCLUDE_FROM_ALL
  ${MINIZIP_SOURCE_DIR}/ioapi.c ${MINIZIP_SOURCE_DIR}/iowin32.c ${MINIZIP_SOURCE_DIR}/unzip.c ${MINIZIP_SOURCE_DIR}/zip.c)
target_include_directories(minizip SYSTEM PUBLIC ${MINIZIP_SOURCE_DIR})
target_compile_options(minizip PRIVATE -w)
target_link_libraries(minizip PUBLIC ZLIB::ZLIB)

# googletest's package installs its source, which is compiled for the target here.
set(GOOGLETEST_SOURCE_DIR /usr/src/googletest CACHE PATH "googletest source")
set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
add_subdirectory(${GOOGLETEST_SOURCE_DIR} ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
