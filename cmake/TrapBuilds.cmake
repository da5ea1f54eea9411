# Two builds in which a fault ends the program where it happens, made and run by scripts/trap-tests.sh. Both check the
# indices of the standard library, too. Included last: it adds to the programs and modules that are there.
option(MARLUX_UBSAN "undefined behaviour is an illegal instruction" OFF)
option(MARLUX_GUARD "heap blocks end at inaccessible pages" OFF)
if(NOT MARLUX_UBSAN AND NOT MARLUX_GUARD)
  return()
endif()

set(support ${CMAKE_SOURCE_DIR}/tests/support)
target_compile_options(marlux_options INTERFACE -fno-omit-frame-pointer)  # for the callers in a crash report
target_compile_definitions(marlux_options INTERFACE _GLIBCXX_ASSERTIONS)
if(MARLUX_UBSAN)
  set(sanitizer -fsanitize=undefined,float-divide-by-zero,float-cast-overflow -fsanitize-undefined-trap-on-error)
  target_compile_options(marlux_options INTERFACE ${sanitizer})
  target_compile_options(minizip PRIVATE ${sanitizer})
  # The compiler takes the checked index of a loop for one that was never set.
  set_source_files_properties(scheduler/TmyMediaPlayer.cpp PROPERTIES COMPILE_OPTIONS -Wno-maybe-uninitialized)
else()
  # A record of a schedule is a block of its own, instead of one among others in a chunk.
  target_compile_definitions(marlux_schedule PRIVATE MARLUX_POOL_SLOTS=1)
endif()

# Not tested here.
set_target_properties(header-check toolkit-gallery marlux-bench PROPERTIES EXCLUDE_FROM_ALL ON)

add_executable(trap-check ${support}/trap/TrapCheck.cpp)
target_link_libraries(trap-check PRIVATE marlux_options)
set_target_properties(trap-check PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)

foreach(folder . plugin host tests)
  get_property(targets DIRECTORY ${CMAKE_SOURCE_DIR}/${folder} PROPERTY BUILDSYSTEM_TARGETS)
  foreach(target IN LISTS targets)
    get_target_property(type ${target} TYPE)
    if(MARLUX_GUARD AND type MATCHES "EXECUTABLE|SHARED_LIBRARY")
      target_sources(${target} PRIVATE ${support}/trap/GuardAllocator.cpp)
      target_link_options(${target} PRIVATE
        $<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,SHARED_LIBRARY>:-Wl,-e,_GuardedEntry@12>)
    endif()
    if(type STREQUAL "EXECUTABLE")
      target_sources(${target} PRIVATE ${support}/trap/CrashReport.cpp)
    endif()
  endforeach()
endforeach()

# Each of these faults must be reported, with its place.
if(MARLUX_UBSAN)
  set(faults overflow float-cast range)
else()
  set(faults read-behind read-freed write-before freed-twice pages range)
endif()
foreach(fault IN LISTS faults)
  add_test(NAME trap-${fault} COMMAND ${CMAKE_SOURCE_DIR}/scripts/wine-run.sh $<TARGET_FILE:trap-check> ${fault})
  set_tests_properties(trap-${fault} PROPERTIES TIMEOUT 60
    PASS_REGULAR_EXPRESSION "crash 0x.*trap-check.exe.0x[0-9a-f]+|Assertion '.*' failed")
endforeach()
