# One zip for each processor: the component and the command, and what their hosts build with.
set(CPACK_GENERATOR ZIP)
set(CPACK_ARCHIVE_COMPONENT_INSTALL OFF)
set(word_size x64)
if(CMAKE_SIZEOF_VOID_P EQUAL 4)
  set(word_size x86)
endif()
set(CPACK_PACKAGE_FILE_NAME KTPNaips-${PROJECT_VERSION}-windows-${word_size})

# Notepad and cmd of every Windows read lines that end with CR LF.
configure_file(windows/README.txt.in README.txt @ONLY NEWLINE_STYLE CRLF)
configure_file(${PROJECT_SOURCE_DIR}/LICENSE LICENSE.txt @ONLY NEWLINE_STYLE CRLF)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/README.txt ${CMAKE_CURRENT_BINARY_DIR}/LICENSE.txt
  DESTINATION .)
foreach(script register unregister)
  configure_file(windows/${script}.cmd ${script}.cmd @ONLY NEWLINE_STYLE CRLF)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${script}.cmd DESTINATION ${CMAKE_INSTALL_BINDIR})
endforeach()
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples/ DESTINATION examples
  FILES_MATCHING PATTERN "CMakeLists.txt" EXCLUDE PATTERN "*.*")
