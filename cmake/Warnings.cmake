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
