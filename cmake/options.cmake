# What every target of the project is compiled with.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)

option(LUMRAKE_TESTS "Build the tests" ON)
option(LUMRAKE_SYSTEM "Build for a system directory: each user has settings of his own" OFF)
option(LUMRAKE_PNG "Draw the drawings to PNG while building: needs rsvg-convert, not QtSvg" ${WIN32})
option(LUMRAKE_BENCHMARKS "Build the benchmarks" OFF)
option(LUMRAKE_SANITIZE "Build with AddressSanitizer and UBSan, stopping at the first fault" OFF)
option(LUMRAKE_FUZZERS "Build the libFuzzer targets (needs clang)" OFF)

# The display library is written for the optimiser: -O3 lets its inner loops use vector registers.
set(CMAKE_CXX_FLAGS_RELEASE "-O3 -DNDEBUG")
set(CMAKE_CXX_FLAGS_RELWITHDEBINFO "-O3 -g")

set(warnings -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor -Woverloaded-virtual
             -Werror)
add_compile_options("$<$<COMPILE_LANGUAGE:CXX>:${warnings}>") # not what the compiler of Windows' resources gets
add_compile_definitions(QT_NO_CAST_FROM_ASCII QT_NO_FOREACH)

if(LUMRAKE_SANITIZE)
    # Among the sanitizers' checks g++ 12 takes what the standard library sets for unset.
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer
                        $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
    add_link_options(-fsanitize=address,undefined)
endif()

if(LUMRAKE_FUZZERS)
    # The fuzzer needs to see which branches of the libraries an input takes.
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()

find_program(CCACHE ccache)
if(CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
endif()
