# Rooms: one static library each, with an honest link list.
#
# A room's headers are reached only through an include folder of its own, a symbolic link in the
# build tree, that its target hands to those who link it. So a room that includes the header of
# another room without naming it in LINKS does not compile.

# Warnings are errors with the compilers that the house looks at, GCC to 12 and clang to 14. A later one may find
# something new in code that is right, which must not keep a user from building. The same for ./run and ./test, so that
# the second finds what the first has built.
set(known_GNU 13)
set(known_Clang 15)
set(judged OFF)
if(DEFINED known_${CMAKE_CXX_COMPILER_ID} AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS known_${CMAKE_CXX_COMPILER_ID})
  set(judged ON)
endif()
option(COUNTER_WERROR "Warnings are errors" ${judged})

set(COUNTER_WARNINGS -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wold-style-cast
                     -Woverloaded-virtual -Wimplicit-fallthrough)
if(COUNTER_WERROR)
  list(APPEND COUNTER_WARNINGS -Werror)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # GCC 12 takes std::string's own joining and replacing for overlapping copies once it inlines them
  # (its bugs 105329 and 105651); clang and the sanitizers watch over the same lines.
  list(APPEND COUNTER_WARNINGS -Wno-restrict -Wno-maybe-uninitialized)
  add_compile_options(-fpch-preprocess)  # lets ccache see through precompiled headers
endif()

# counter_room(NAME FOLDER SOURCES file... [LINKS target...])
# Makes library room_NAME; its headers are included as "FOLDER/file.h".
function(counter_room name folder)
  cmake_parse_arguments(ROOM "" "" "SOURCES;LINKS" ${ARGN})
  set(include_root ${CMAKE_BINARY_DIR}/rooms/${name})
  cmake_path(GET folder PARENT_PATH parent)
  file(MAKE_DIRECTORY ${include_root}/${parent})
  file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${include_root}/${folder} SYMBOLIC)
  add_library(room_${name} STATIC ${ROOM_SOURCES})
  target_include_directories(room_${name} PUBLIC ${include_root})
  target_compile_options(room_${name} PRIVATE ${COUNTER_WARNINGS})
  target_link_libraries(room_${name} PUBLIC ${ROOM_LINKS})
endfunction()

# counter_program(NAME SOURCES file... LINKS target...): a program with the house's warnings.
function(counter_program name)
  cmake_parse_arguments(PROGRAM "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} ${PROGRAM_SOURCES})
  target_compile_options(${name} PRIVATE ${COUNTER_WARNINGS})
  target_link_libraries(${name} PRIVATE ${PROGRAM_LINKS})
endfunction()
