# How every target of the project is compiled, and the one way to make a library.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

# The desktop that everything is linked with: the real one of Windows, or the one in memory.
if(WIN32)
    set(TESSARINE_DESKTOP win32)
else()
    set(TESSARINE_DESKTOP simulated)
endif()

option(TESSARINE_SANITIZE "address and undefined-behaviour sanitizers" OFF)
option(TESSARINE_COVERAGE "count which lines the tests reach" OFF)
option(TESSARINE_FUZZ "build the fuzz targets (clang)" OFF)

add_compile_options(-Wall -Wextra -Wconversion -Wshadow -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # GCC 12 sees overlaps and overruns in plain string concatenations (its bugs 105651 and 105329).
    add_compile_options(-Wno-restrict -Wno-array-bounds -Wno-stringop-overflow)
endif()
if(TESSARINE_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()
if(TESSARINE_COVERAGE)
    add_compile_options(--coverage)
    add_link_options(--coverage)
endif()
if(TESSARINE_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all)
    add_link_options(-fsanitize=address,undefined)
endif()
if(WIN32)
    set(TESSARINE_OUTPUT ${PROJECT_SOURCE_DIR}/out/windows CACHE PATH "where the programs are put")
    add_compile_definitions(WINVER=0x0A00 _WIN32_WINNT=0x0A00 WIN32_LEAN_AND_MEAN NOMINMAX)
    add_link_options(-static -Wl,--stack,1048576)  # the stack that Windows gives by itself; mingw-w64 asks for two
endif()

# A library declares what it calls (views, the desktop); the program or the test that links it supplies the bodies.
# Such references point up, against the order of the link line, so the linker looks through the libraries in a group.
set(CMAKE_CXX_LINK_EXECUTABLE
    "<CMAKE_CXX_COMPILER> <FLAGS> <CMAKE_CXX_LINK_FLAGS> <LINK_FLAGS> <OBJECTS> -o <TARGET> -Wl,--start-group <LINK_LIBRARIES> -Wl,--end-group")

# What nobody calls is left out, and with it the need for the views that it would have called: the linker may take an
# object of a library for the sake of one template in it.
add_compile_options(-ffunction-sections -fdata-sections)
add_link_options(-Wl,--gc-sections)

# tessarine_library(NAME [SOURCES file...] [DEPENDS library...])
#
# One directory of src is one library. It is included as "NAME/header.h", and only by libraries that list it in their
# DEPENDS: every library has an include folder of its own, which shows that one directory and nothing else.
function(tessarine_library name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;DEPENDS")
    set(view ${CMAKE_BINARY_DIR}/include/${name})
    file(MAKE_DIRECTORY ${view})
    file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${view}/${name} SYMBOLIC)
    if(arg_SOURCES)
        add_library(${name} STATIC ${arg_SOURCES})
        target_include_directories(${name} PUBLIC ${view})
        target_link_libraries(${name} PUBLIC ${arg_DEPENDS})
        target_precompile_headers(${name} REUSE_FROM standard_headers)
    else()
        add_library(${name} INTERFACE)
        target_include_directories(${name} INTERFACE ${view})
        target_link_libraries(${name} INTERFACE ${arg_DEPENDS})
    endif()
endfunction()

# What is mostly templates of other packages is not optimised under the sanitizers: that would cost a fifth of the build.
function(tessarine_of_templates name)
    if(TESSARINE_SANITIZE)
        target_compile_options(${name} PRIVATE -O0 -Wno-error=invalid-pch)  # that is optimised: it is read as a header
    endif()
endfunction()

# A program that is given to users: nothing in it but what runs, and the same bytes from every build.
function(tessarine_program name)
    target_link_options(${name} PRIVATE
        -s -Wl,--dynamicbase,--high-entropy-va,--nxcompat -Wl,--no-insert-timestamp)
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${TESSARINE_OUTPUT})
endfunction()

# What the resources of a program include, which the build system does not see by itself. For OBJECT_DEPENDS.
file(GLOB TESSARINE_PROGRAM_RESOURCES CONFIGURE_DEPENDS
    ${PROJECT_SOURCE_DIR}/assets/program.rc
    ${PROJECT_SOURCE_DIR}/assets/*.ico
    ${PROJECT_SOURCE_DIR}/assets/*.bmp
    ${PROJECT_SOURCE_DIR}/assets/tessarine.manifest)

# The standard library's headers that most sources read are compiled once.
add_library(standard_headers OBJECT ${CMAKE_CURRENT_LIST_DIR}/standard_headers.cpp)
target_precompile_headers(standard_headers PRIVATE
    <algorithm> <array> <cstdint> <functional> <map> <memory> <optional> <string> <utility> <vector>)

# packages_NAME: a package that is headers alone, shown by itself. The folder in which it lies has the headers of this
# system beside it, which a build for Windows must not see.
foreach(package CLI nlohmann stb)
    find_path(${package}_FOLDER ${package} PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH)
    if(${package}_FOLDER)
        file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/packages/${package})
        file(CREATE_LINK ${${package}_FOLDER}/${package} ${CMAKE_BINARY_DIR}/packages/${package}/${package} SYMBOLIC)
        add_library(packages_${package} INTERFACE)
        target_include_directories(packages_${package} SYSTEM INTERFACE ${CMAKE_BINARY_DIR}/packages/${package})
    endif()
endforeach()
