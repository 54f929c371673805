# vellumo_warnings(<target>...): the warnings every target of ours is built
# with. With VELLUMO_WERROR (on by default, and always in CI) a warning fails
# the build.
option(VELLUMO_WERROR "Treat warnings as errors" ON)

function(vellumo_warnings)
    foreach(target IN LISTS ARGN)
        target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic)
        if(VELLUMO_WERROR)
            target_compile_options(${target} PRIVATE -Werror)
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
