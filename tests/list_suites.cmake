# Writes a test for each suite of the test program PROGRAM into the file LIST, with ENVIRONMENT as its
# environment: run behind the program's build.
execute_process(
  COMMAND ${CMAKE_COMMAND} -E env ${ENVIRONMENT} ${PROGRAM} --gtest_list_tests
  OUTPUT_VARIABLE listed
  COMMAND_ERROR_IS_FATAL ANY)
# Suites stand at the beginning of a line and end in a point; of what is made from parameters a remark
# stands behind it.
string(REGEX MATCHALL "(^|\n)[^ \n]+\\.( |\n)" suites "${listed}")
set(tests "")
foreach(suite IN LISTS suites)
  string(STRIP "${suite}" suite)
  string(REGEX REPLACE "\\.$" "" suite "${suite}")
  string(APPEND tests "add_test([==[${suite}]==] [==[${PROGRAM}]==] --gtest_brief=1 [==[--gtest_filter=${suite}.*]==])\n")
  if(ENVIRONMENT)
    string(APPEND tests "set_tests_properties([==[${suite}]==] PROPERTIES ENVIRONMENT ${ENVIRONMENT})\n")
  endif()
endforeach()
file(WRITE ${LIST} "${tests}")
