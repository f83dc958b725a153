# SPDX-License-Identifier: MIT
# Makes the locales of the runs under other locales: no machine needs to have them, nor root.
file(MAKE_DIRECTORY ${INTO})
foreach(name de_DE tr_TR)
  if(EXISTS ${INTO}/${name}.UTF-8/LC_NUMERIC)
    continue()
  endif()
  # It warns of what it leaves out, and then says that it failed.
  execute_process(COMMAND localedef --no-archive -c -i ${name} -f UTF-8 ${INTO}/${name}.UTF-8
    RESULT_VARIABLE code OUTPUT_VARIABLE said ERROR_VARIABLE said)
  if(NOT EXISTS ${INTO}/${name}.UTF-8/LC_NUMERIC)
    message(FATAL_ERROR "localedef could not make ${name} (${code}): ${said}")
  endif()
endforeach()
