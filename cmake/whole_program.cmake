# The shared libraries optimised each as a whole: a sixth of every waiting time. Their objects hold the usual code too,
# with which the tests are linked, at the usual speed.
option(TAVRIK_WHOLE_PROGRAM "Optimise each shared library as a whole" ON)

# tavrik_whole_program(TARGET...): the libraries, and what is linked into them.
if(TAVRIK_WHOLE_PROGRAM AND NOT WIN32 AND NOT TAVRIK_SANITIZE AND NOT CMAKE_BUILD_TYPE STREQUAL Debug
   AND CMAKE_CXX_COMPILER_ID STREQUAL GNU)
  target_link_options(tavrik_options INTERFACE $<$<NOT:$<STREQUAL:$<TARGET_PROPERTY:TYPE>,SHARED_LIBRARY>>:-fno-lto>)
  function(tavrik_whole_program)
    foreach(target ${ARGN})
      # The assembler adds its folder by itself here.
      set(options -flto=auto -ffile-prefix-map=${PROJECT_SOURCE_DIR}=. -Wa,--debug-prefix-map=${PROJECT_SOURCE_DIR}=.)
      target_compile_options(${target} PRIVATE ${options} -ffat-lto-objects)
      target_link_options(${target} PRIVATE ${options})
    endforeach()
  endfunction()
else()
  function(tavrik_whole_program)
  endfunction()
endif()
