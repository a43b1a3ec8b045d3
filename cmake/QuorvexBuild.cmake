# quorvex_build: what every target of this project is compiled with.

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "Build type" FORCE)
endif()
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

find_program(QUORVEX_CCACHE ccache)
if(QUORVEX_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # What a precompiled header defines is known to be the same for all its users.
  set(CMAKE_CXX_COMPILER_LAUNCHER
    "${CMAKE_COMMAND};-E;env;CCACHE_SLOPPINESS=pch_defines,time_macros;${QUORVEX_CCACHE}")
endif()

add_library(quorvex_build INTERFACE)
add_library(Quorvex::build ALIAS quorvex_build)
target_compile_features(quorvex_build INTERFACE cxx_std_20)
target_compile_options(quorvex_build INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor
  # gcc 12 sees overlaps and overruns inside inlined std::string operations (gcc bug 105651).
  $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict;-Wno-array-bounds;-Wno-stringop-overflow>
  -Wno-overloaded-virtual  # bases and their heirs share names such as New and setLocation on purpose
  -ffp-contract=off        # a run gives the same files to the byte in every vector variant
  # The compiler cache asks for these where headers are precompiled.
  $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess> $<$<CXX_COMPILER_ID:Clang>:SHELL:-Xclang -fno-pch-timestamp>
  $<$<BOOL:${QUORVEX_WERROR}>:-Werror>)

if(QUORVEX_SANITIZE)
  set(sanitize -fsanitize=${QUORVEX_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_compile_options(quorvex_build INTERFACE ${sanitize})
  target_link_options(quorvex_build INTERFACE ${sanitize})
endif()
if(QUORVEX_COVERAGE)
  target_compile_options(quorvex_build INTERFACE --coverage)
  target_link_options(quorvex_build INTERFACE --coverage)
endif()
