# Warnings are errors everywhere.
function(kelp_warnings target)
  if(MSVC)
    target_compile_options(${target} PRIVATE /W4 /WX)
  else()
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion
                                             -Wno-missing-field-initializers -Werror)
    # GCC 12 takes "a" + text for an overlapping copy when it optimizes;
    # clang-tidy, which reads these options too, does not know that warning.
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
      target_compile_options(${target} PRIVATE -Wno-unknown-warning-option -Wno-restrict)
    endif()
  endif()
endfunction()
