# fp_add_gtest(NAME <name> SOURCES <files...> LIBS <targets...> [LABELS <labels...>])
# Builds a GoogleTest executable and registers its tests with CTest. Tests are listed when
# CTest runs (not at build time) so cross builds can run them under an emulator.
function(fp_add_gtest)
  cmake_parse_arguments(T "" "NAME" "SOURCES;LIBS;LABELS" ${ARGN})
  if(NOT FP_BUILD_TESTS)
    return()
  endif()
  add_executable(${T_NAME} ${T_SOURCES})
  target_link_libraries(${T_NAME} PRIVATE ${T_LIBS} GTest::gtest GTest::gtest_main Threads::Threads)
  gtest_discover_tests(${T_NAME}
    DISCOVERY_MODE PRE_TEST
    DISCOVERY_TIMEOUT 60
    PROPERTIES LABELS "${T_LABELS}" TIMEOUT 300)
endfunction()

# log4cpp from Debian's liblog4cpp5-dev, as an imported target.
function(fp_find_log4cpp)
  if(TARGET log4cpp::log4cpp)
    return()
  endif()
  find_package(PkgConfig QUIET)
  if(PkgConfig_FOUND)
    pkg_check_modules(LOG4CPP QUIET IMPORTED_TARGET log4cpp)
  endif()
  if(LOG4CPP_FOUND)
    add_library(log4cpp::log4cpp ALIAS PkgConfig::LOG4CPP)
  else()
    find_path(LOG4CPP_INCLUDE_DIR log4cpp/Category.hh REQUIRED)
    find_library(LOG4CPP_LIBRARY log4cpp REQUIRED)
    add_library(log4cpp::log4cpp UNKNOWN IMPORTED GLOBAL)
    set_target_properties(log4cpp::log4cpp PROPERTIES
      IMPORTED_LOCATION ${LOG4CPP_LIBRARY}
      INTERFACE_INCLUDE_DIRECTORIES ${LOG4CPP_INCLUDE_DIR})
  endif()
endfunction()
