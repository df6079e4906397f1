# The fuzzing switch. With FP_FUZZ=ON (clang only) every fuzz target is a libFuzzer binary
# with ASan and UBSan, linked to instrumented copies of the libraries it exercises. The
# originals are left alone, so the rest of a fuzz build links and runs as usual. Without the
# switch nothing here touches the build.
option(FP_FUZZ "Build the libFuzzer targets (clang; ASan+UBSan)" OFF)

set(FP_FUZZ_IGNORELIST ${CMAKE_SOURCE_DIR}/fuzz/coverage-ignore.txt)
set(FP_FUZZ_COMPILE_FLAGS -O1 -g -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=undefined
                          -fsanitize-coverage-ignorelist=${FP_FUZZ_IGNORELIST}
                          -fno-omit-frame-pointer)
set(FP_FUZZ_LINK_FLAGS -fsanitize=fuzzer,address,undefined)

if(FP_FUZZ)
  if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    message(FATAL_ERROR "FP_FUZZ needs clang (-DCMAKE_CXX_COMPILER=clang++), not ${CMAKE_CXX_COMPILER_ID}")
  endif()
  if(FP_SANITIZE)
    message(FATAL_ERROR "FP_FUZZ brings its own sanitizers; leave FP_SANITIZE empty")
  endif()
endif()

# fp_fuzz_copy(<target>): fuzz_<target>, a static copy of an in-tree library built with the
# fuzzing instrumentation. Its in-tree dependencies that already have a copy are replaced by
# it, so copy the lower libraries first.
function(fp_fuzz_copy target)
  if(NOT FP_FUZZ)
    return()
  endif()
  get_target_property(dir ${target} SOURCE_DIR)
  get_target_property(sources ${target} SOURCES)
  set(absolute "")
  foreach(source ${sources})
    if(IS_ABSOLUTE ${source})
      list(APPEND absolute ${source})
    else()
      list(APPEND absolute ${dir}/${source})
    endif()
  endforeach()
  add_library(fuzz_${target} STATIC ${absolute})
  # The compiler reads the list; a change to it recompiles (source properties are per
  # folder, so the ordinary builds of the same files are left alone).
  set_source_files_properties(${absolute} PROPERTIES OBJECT_DEPENDS ${FP_FUZZ_IGNORELIST})
  target_compile_options(fuzz_${target} PRIVATE ${FP_FUZZ_COMPILE_FLAGS})
  foreach(property INCLUDE_DIRECTORIES COMPILE_DEFINITIONS)
    get_target_property(values ${target} ${property})
    if(values)
      set_property(TARGET fuzz_${target} APPEND PROPERTY ${property} ${values})
    endif()
  endforeach()
  get_target_property(public_includes ${target} INTERFACE_INCLUDE_DIRECTORIES)
  if(public_includes)
    target_include_directories(fuzz_${target} PUBLIC ${public_includes})
  endif()
  get_target_property(libs ${target} LINK_LIBRARIES)
  if(libs)
    foreach(lib ${libs})
      if(TARGET fuzz_${lib})
        set(lib fuzz_${lib})
      endif()
      target_link_libraries(fuzz_${target} PUBLIC ${lib})
    endforeach()
  endif()
endfunction()

# fp_add_fuzzer(NAME <name> ENTRY <function> SOURCES <files...> LIBS <targets...>): a
# libFuzzer binary whose LLVMFuzzerTestOneInput calls ENTRY (fuzz builds only).
function(fp_add_fuzzer)
  cmake_parse_arguments(F "" "NAME;ENTRY" "SOURCES;LIBS" ${ARGN})
  if(NOT FP_FUZZ)
    return()
  endif()
  add_executable(${F_NAME} ${CMAKE_CURRENT_SOURCE_DIR}/FuzzMain.cpp ${F_SOURCES})
  set_source_files_properties(${CMAKE_CURRENT_SOURCE_DIR}/FuzzMain.cpp ${F_SOURCES}
    PROPERTIES OBJECT_DEPENDS ${FP_FUZZ_IGNORELIST})
  target_compile_definitions(${F_NAME} PRIVATE FP_FUZZ_ENTRY=${F_ENTRY})
  target_compile_options(${F_NAME} PRIVATE ${FP_FUZZ_COMPILE_FLAGS})
  target_link_options(${F_NAME} PRIVATE ${FP_FUZZ_LINK_FLAGS})
  target_include_directories(${F_NAME} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
  target_link_libraries(${F_NAME} PRIVATE ${F_LIBS})
endfunction()
