# Copies changed data files beside the program. The list of satellites and whatever else the program has written
# there stays.
file(GLOB_RECURSE files RELATIVE ${FROM} ${FROM}/*)
foreach(file ${files})
  if(NOT file MATCHES "SOURCES\\.md$")
    get_filename_component(folder ${TO}/${file} DIRECTORY)
    file(MAKE_DIRECTORY ${folder})
    execute_process(COMMAND ${CMAKE_COMMAND} -E copy_if_different ${FROM}/${file} ${TO}/${file}
                    COMMAND_ERROR_IS_FATAL ANY)
  endif()
endforeach()
