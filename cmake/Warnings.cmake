# Warnings are errors everywhere.
function(kelp_warnings target)
  if(MSVC)
    target_compile_options(${target} PRIVATE /W4 /WX)
  else()
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion
                                             -Wno-missing-field-initializers -Werror)
  endif()
endfunction()
