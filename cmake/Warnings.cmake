# tarnwick_warnings(target): the warnings that the project's own code is built with, by gcc 12 and by clang 14.
function(tarnwick_warnings target)
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wpedantic
        -Wconversion -Wsign-conversion -Wdouble-promotion
        -Wshadow -Wold-style-cast -Wcast-qual
        -Wnon-virtual-dtor -Woverloaded-virtual
        -Wformat=2
        $<$<BOOL:${TARNWICK_WERROR}>:-Werror>)
endfunction()
