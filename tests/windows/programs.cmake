# Windows programs start slowly through Wine: one CTest entry a program, and none where no emulator
# runs them. Each program's imports are checked besides.
function(gtest_discover_tests program)
  if(CMAKE_CROSSCOMPILING_EMULATOR OR NOT CMAKE_CROSSCOMPILING)
    add_test(NAME ${program} COMMAND ${program})
    set_tests_properties(${program} PROPERTIES TIMEOUT 600 LABELS wine)
  endif()
  ktp_check_imports(${program})
endfunction()

# ktp_check_imports(target): the program or library needs system DLLs only.
function(ktp_check_imports target)
  if(CMAKE_OBJDUMP)
    add_test(NAME ${target}-imports
      COMMAND ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/check_imports ${CMAKE_OBJDUMP}
              $<TARGET_FILE:${target}>)
  endif()
endfunction()

if(TARGET naips)
  ktp_check_imports(naips)
endif()

# Hosts include windows.h first, with its macros: every public header survives that.
file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/after_windows_h.cpp
  CONTENT "#include <windows.h>\n\n#include <ktpnaips/ktpnaips.h>\n#include <ktpnaips/platform/windows/xml.h>\n")
add_library(after-windows-h OBJECT ${CMAKE_CURRENT_BINARY_DIR}/after_windows_h.cpp)
target_link_libraries(after-windows-h PRIVATE ktpnaips)
ktp_warnings(after-windows-h)
