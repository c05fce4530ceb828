# The one warning list of the project; every warning is an error.
function(plotvane_warnings target)
  target_compile_options(${target} PRIVATE
    -Wall -Wextra -Wpedantic -Werror
    -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast -Woverloaded-virtual
    -Wcast-align -Wimplicit-fallthrough -Wundef)
  if(NOT WIN32)
    # COM interfaces have no virtual destructors by design; the portable folders are checked natively.
    target_compile_options(${target} PRIVATE -Wnon-virtual-dtor)
  endif()
endfunction()
