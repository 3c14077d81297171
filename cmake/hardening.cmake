# What makes a fault in the binaries hard to use, and keeps the place where they were built out of them.
# tests/hardening.sh looks for all of it in what was built.
include(CheckPIESupported)
include(CheckCXXCompilerFlag)

check_pie_supported()
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)
add_compile_options(-ffile-prefix-map=${PROJECT_SOURCE_DIR}=.)

# The sanitizers find more than these checks do, and some of these hide it from them.
if(TAVRIK_SANITIZE)
  return()
endif()

add_compile_definitions(_GLIBCXX_ASSERTIONS)
add_compile_options(-fstack-protector-strong)
if(WIN32)
  # Long frames are probed there anyway. For Windows the compiler has no guard of indirect calls, and its checks of the C
  # library's buffers need a further system library.
  add_link_options(-Wl,--dynamicbase,--nxcompat)
  if(CMAKE_SIZEOF_VOID_P EQUAL 8)
    add_link_options(-Wl,--high-entropy-va)
  endif()
else()
  # The checks of buffers are made by the optimiser.
  add_compile_options(-U_FORTIFY_SOURCE $<$<NOT:$<CONFIG:Debug>>:-D_FORTIFY_SOURCE=2>)
  foreach(FLAG stack-clash-protection cf-protection)
    check_cxx_compiler_flag(-f${FLAG} HAS_${FLAG})
    if(HAS_${FLAG})
      add_compile_options(-f${FLAG})
    endif()
  endforeach()
  add_link_options(-Wl,-z,relro,-z,now,-z,noexecstack)
endif()
