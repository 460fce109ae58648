# SPDX-License-Identifier: GPL-3.0-or-later
# The warnings of every target; with KELP_WERROR they are errors.
function(kelp_warnings target)
  if(MSVC)
    target_compile_options(${target} PRIVATE /W4 $<$<BOOL:${KELP_WERROR}>:/WX>)
  else()
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion
                                             -Wno-missing-field-initializers
                                             $<$<BOOL:${KELP_WERROR}>:-Werror>)
    # GCC guesses wrongly at these once it optimises; the sanitizers and clang-tidy look for the same faults.
    target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict -Wno-maybe-uninitialized>)
  endif()
endfunction()
