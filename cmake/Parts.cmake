# tarnwick_part(PART package sources): sets TARNWICK_HAS_<PART> when the part is wanted, has sources, and its library is
# there. With TARNWICK_<PART>=ON a missing library is an error.
function(tarnwick_part part package sources)
    set(TARNWICK_HAS_${part} FALSE PARENT_SCOPE)
    if(NOT sources OR NOT TARNWICK_${part})
        return()
    endif()
    if(TARNWICK_${part} STREQUAL "AUTO")
        find_package(${package} CONFIG QUIET)
    else()
        find_package(${package} CONFIG REQUIRED)
    endif()
    set(TARNWICK_HAS_${part} ${${package}_FOUND} PARENT_SCOPE)
endfunction()
