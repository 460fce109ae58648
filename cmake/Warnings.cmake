# Warnings are errors everywhere.
function(kelp_warnings target)
  if(MSVC)
    target_compile_options(${target} PRIVATE /W4 /WX)
  else()
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion
                                             -Wno-missing-field-initializers -Werror)
    # GCC guesses wrongly at these once it optimises; the sanitizers and clang-tidy look for the same faults.
    target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict -Wno-maybe-uninitialized>)
  endif()
endfunction()
