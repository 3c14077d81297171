# The shared libraries optimised each as a whole: a sixth of every waiting time. Their objects hold the usual code too,
# with which the tests are linked, at the usual speed. Without it a changed file of the window layer is linked in a
# moment instead of some twenty seconds: -DTAVRIK_WHOLE_PROGRAM=OFF.
option(TAVRIK_WHOLE_PROGRAM "Optimise each shared library as a whole" ON)

# tavrik_whole_program(TARGET...): takes part in it.
if(TAVRIK_WHOLE_PROGRAM AND NOT WIN32 AND NOT TAVRIK_SANITIZE AND NOT CMAKE_BUILD_TYPE STREQUAL Debug
   AND CMAKE_CXX_COMPILER_ID STREQUAL GNU)
  target_link_options(tavrik_options INTERFACE
                      $<IF:$<STREQUAL:$<TARGET_PROPERTY:TYPE>,SHARED_LIBRARY>,-flto=auto,-fno-lto>)
  function(tavrik_whole_program)
    foreach(target ${ARGN})
      target_compile_options(${target} PRIVATE -flto=auto -ffat-lto-objects)
    endforeach()
  endfunction()
else()
  function(tavrik_whole_program)
  endfunction()
endif()
