# The one warning list of the project; every warning is an error.
function(plotvane_warnings target)
  target_compile_options(${target} PRIVATE
    -Wall -Wextra -Wpedantic -Werror
    -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast -Woverloaded-virtual
    -Wnon-virtual-dtor -Wcast-align -Wnull-dereference -Wimplicit-fallthrough -Wundef)
endfunction()
