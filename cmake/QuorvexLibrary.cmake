# quorvex_library(<directory> [QT] [CLASSES ...] [HEADERS ...] [SOURCES ...] [DEPENDS ...])
#
# Makes the static library quorvex_<directory> with the alias Quorvex::<directory>. Each of CLASSES is a
# pair .h and .cpp, HEADERS are templates and macros, SOURCES have no header of their own. Headers are
# found from src alone, so that every include names its directory.
function(quorvex_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "QT" "" "CLASSES;HEADERS;SOURCES;DEPENDS")
  set(headers ${arg_HEADERS})
  set(sources ${arg_SOURCES})
  foreach(class IN LISTS arg_CLASSES)
    list(APPEND headers ${class}.h)
    list(APPEND sources ${class}.cpp)
  endforeach()

  set(target quorvex_${name})
  add_library(${target} STATIC ${sources})
  add_library(Quorvex::${name} ALIAS ${target})
  target_sources(${target} PUBLIC FILE_SET HEADERS BASE_DIRS "${PROJECT_SOURCE_DIR}/src" FILES ${headers})
  target_link_libraries(${target} PUBLIC Quorvex::build ${arg_DEPENDS})
  set_target_properties(${target} PROPERTIES VERIFY_INTERFACE_HEADER_SETS ON)
  if(arg_QT)
    set_target_properties(${target} PROPERTIES AUTOMOC ON)
    # Half of the time of a source with widgets goes into Qt's headers.
    target_precompile_headers(${target} PRIVATE <QtWidgets>)
  endif()
endfunction()
