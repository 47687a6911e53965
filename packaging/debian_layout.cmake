# Run by cpack on the staged files of the package: compresses what Debian's policy wants compressed.
file(GLOB_RECURSE pages ${CPACK_TEMPORARY_DIRECTORY}/usr/share/man/*.1)
foreach(page IN LISTS pages)
  execute_process(COMMAND gzip -9n ${page} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
