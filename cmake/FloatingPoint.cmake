# Results are the same to the last bit in every build: no fused multiply-add, no reassociation, and SSE2
# arithmetic instead of the x87 unit on 32 bits. Nobody reads errno or the exception flags after arithmetic, and
# without them loops over numbers vectorise.
add_library(plotvane_floating_point INTERFACE)
target_compile_options(plotvane_floating_point INTERFACE -ffp-contract=off -fno-math-errno -fno-trapping-math)
if(CMAKE_SYSTEM_PROCESSOR STREQUAL "i686")
  target_compile_options(plotvane_floating_point INTERFACE -msse2 -mfpmath=sse)
endif()
