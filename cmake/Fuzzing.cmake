# VELLUMO_FUZZ: the libFuzzer targets of tests/fuzz, one per parser of ours
# (scripts/fuzz builds them into build-fuzz/ and runs them). Clang only:
# every target of the build is compiled with coverage for the fuzzer and
# with AddressSanitizer and UndefinedBehaviorSanitizer; only the fuzz targets
# link libFuzzer's main. The normal build is not affected.
option(VELLUMO_FUZZ "Build the libFuzzer targets (needs clang)" OFF)

if(VELLUMO_FUZZ)
    if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        message(FATAL_ERROR "VELLUMO_FUZZ needs clang (CXX=clang++), not ${CMAKE_CXX_COMPILER_ID}")
    endif()
    if(VELLUMO_SANITIZE)
        message(FATAL_ERROR "VELLUMO_FUZZ brings its own sanitizers: leave VELLUMO_SANITIZE empty")
    endif()
    add_compile_options(-fsanitize=fuzzer-no-link,address,undefined
                        -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()
