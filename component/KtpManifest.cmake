# ktp_manifest(FILE IDL...): writes the side-by-side assembly "Brevank", by which hosts use the
# component without registration, for the classes and interfaces of the IDL files.
function(ktp_manifest file)
  set(processor amd64)
  if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    set(processor x86)
  endif()
  set(text "")
  foreach(idl ${ARGN})
    file(READ ${idl} content)
    string(APPEND text "${content}")
  endforeach()
  # Semicolons and brackets mean something in CMake's lists.
  string(REPLACE ";" "" text "${text}")
  string(REPLACE "[" "" text "${text}")
  string(REPLACE "]" "|" text "${text}")
  set(id "uuid\\(([0-9A-F-]+)\\)[^|]*[|][ \n]*")
  string(REGEX MATCH "${id}library" library "${text}")
  set(library_id "{${CMAKE_MATCH_1}}")

  set(classes "")
  string(REGEX MATCHALL "${id}coclass [A-Za-z]+" found "${text}")
  foreach(class ${found})
    string(REGEX MATCH "${id}coclass ([A-Za-z]+)" class "${class}")
    string(APPEND classes "
    <comClass clsid=\"{${CMAKE_MATCH_1}}\" threadingModel=\"Apartment\" tlbid=\"${library_id}\"
              progid=\"Brevank.${CMAKE_MATCH_2}\">
      <progid>Brevank.${CMAKE_MATCH_2}.1</progid>
    </comClass>")
  endforeach()
  set(interfaces "")
  string(REGEX MATCHALL "${id}interface [_A-Za-z]+" found "${text}")
  foreach(interface ${found})
    string(REGEX MATCH "${id}interface ([_A-Za-z]+)" interface "${interface}")
    string(APPEND interfaces "
  <comInterfaceExternalProxyStub name=\"${CMAKE_MATCH_2}\" iid=\"{${CMAKE_MATCH_1}}\"
                                 proxyStubClsid32=\"{00020424-0000-0000-C000-000000000046}\"
                                 tlbid=\"${library_id}\"/>")
  endforeach()
  file(CONFIGURE OUTPUT ${file} @ONLY CONTENT
"<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>
<assembly xmlns=\"urn:schemas-microsoft-com:asm.v1\" manifestVersion=\"1.0\">
  <assemblyIdentity type=\"win32\" name=\"Brevank\" version=\"${PROJECT_VERSION}.0\"
                    processorArchitecture=\"${processor}\"/>
  <file name=\"KTPNaips.dll\">${classes}
    <typelib tlbid=\"${library_id}\" version=\"1.0\" helpdir=\"\"/>
  </file>${interfaces}
</assembly>
")
endfunction()
