# Run by cpack on the staged files of the package: adds the changelog, and compresses what Debian's policy wants
# compressed.
set(share ${CPACK_TEMPORARY_DIRECTORY}/usr/share)
configure_file(${CMAKE_CURRENT_LIST_DIR}/changelog ${share}/doc/${CPACK_PACKAGE_NAME}/changelog COPYONLY)
file(GLOB_RECURSE compressed ${share}/man/*.1 ${share}/doc/${CPACK_PACKAGE_NAME}/changelog)
foreach(file IN LISTS compressed)
  execute_process(COMMAND gzip -9n ${file} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
