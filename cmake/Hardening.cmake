# SPDX-License-Identifier: GPL-3.0-or-later
# What a program that reads files and cables of strangers is built with in a release.
if(KELP_HARDEN AND NOT MSVC AND NOT KELP_SANITIZE)
  set(CMAKE_POSITION_INDEPENDENT_CODE ON)
  include(CheckPIESupported)
  check_pie_supported()
  add_compile_options(-fstack-protector-strong -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
  if(UNIX AND NOT APPLE)
    add_compile_options(-fstack-clash-protection)
    add_link_options(-Wl,-z,relro,-z,now)
  endif()
endif()
