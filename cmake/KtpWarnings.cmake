# ktp_warnings(target): the strict set that all of our own code compiles under, as errors.
function(ktp_warnings target)
  if(MSVC)
    target_compile_options(${target} PRIVATE /W4 /WX /permissive- /utf-8)
  else()
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion
      -Wshadow -Wnon-virtual-dtor -Wold-style-cast -Woverloaded-virtual -Wcast-qual -Wundef -Werror)
    if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND
       (MINGW OR CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13))
      # GCC 12, and later ones with MinGW's headers, see overlaps and overruns in std::string's own
      # code that cannot be.
      target_compile_options(${target} PRIVATE -Wno-restrict -Wno-array-bounds
        -Wno-stringop-overflow -Wno-stringop-overread)
    endif()
    if(KTPNAIPS_SANITIZE MATCHES "thread" AND CMAKE_CXX_COMPILER_ID STREQUAL GNU)
      # GCC warns of each fence in Asio, which that sanitizer does not see.
      target_compile_options(${target} PRIVATE -Wno-tsan)
    endif()
  endif()
endfunction()
