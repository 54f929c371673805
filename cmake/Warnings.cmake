# vellumo_warnings(<target>...): the warnings every target of ours is built
# with. With VELLUMO_WERROR a warning fails the build: off by default, so
# that a newer compiler's new warning does not stop someone building
# Vellumo; every gate of scripts/test turns it on.
option(VELLUMO_WERROR "Treat warnings as errors" OFF)

function(vellumo_warnings)
    foreach(target IN LISTS ARGN)
        target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic)
        if(VELLUMO_WERROR)
            target_compile_options(${target} PRIVATE -Werror)
        endif()
        # GCC 12's optimiser takes std::string's operator+ on a literal for an
        # overlapping memcpy (GCC bug 105651): a false -Wrestrict at -O3 only,
        # so the release build leaves that one warning out on that compiler.
        if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
            target_compile_options(${target} PRIVATE $<$<CONFIG:Release>:-Wno-restrict>)
        endif()
    endforeach()
endfunction()

# VELLUMO_SANITIZE: "address" (AddressSanitizer with UndefinedBehaviorSanitizer)
# or "thread" (ThreadSanitizer), for every target of the build.
set(VELLUMO_SANITIZE "" CACHE STRING "Sanitizers to build with: address, thread, or empty")
if(VELLUMO_SANITIZE STREQUAL "address")
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined
                        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
elseif(VELLUMO_SANITIZE STREQUAL "thread")
    add_compile_options(-fsanitize=thread -fno-omit-frame-pointer)
    add_link_options(-fsanitize=thread)
elseif(NOT VELLUMO_SANITIZE STREQUAL "")
    message(FATAL_ERROR "VELLUMO_SANITIZE must be address, thread or empty")
endif()
