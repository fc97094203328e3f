# Copies each of FILES that FOLDER does not hold yet.
file(MAKE_DIRECTORY ${FOLDER})
foreach(source IN LISTS FILES)
  get_filename_component(name ${source} NAME)
  if(NOT EXISTS ${FOLDER}/${name})
    file(COPY ${source} DESTINATION ${FOLDER})
  endif()
endforeach()
