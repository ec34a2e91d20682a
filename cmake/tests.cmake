# orbisgrid_test(<name> LINKS <libraries> SOURCES <files>): a GoogleTest program, one ctest entry.
# Its main() fails when no test ran.
function(orbisgrid_test name)
  cmake_parse_arguments(TEST "" "" "LINKS;SOURCES" ${ARGN})
  add_executable(${name} ${TEST_SOURCES})
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/tests)
  target_link_libraries(${name} PRIVATE orbisgrid_test_support ${TEST_LINKS})
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES TIMEOUT 300)
endfunction()

# orbisgrid_qt_test(<name> LINKS <libraries> SOURCES <files>): a Qt Test program with its own main(),
# offscreen and without a session bus (Qt would start one).
function(orbisgrid_qt_test name)
  cmake_parse_arguments(TEST "" "" "LINKS;SOURCES" ${ARGN})
  add_executable(${name} ${TEST_SOURCES})
  set_target_properties(${name} PROPERTIES AUTOMOC ON
    RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/tests)
  target_link_libraries(${name} PRIVATE Qt6::Test ${TEST_LINKS})
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES TIMEOUT 300
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;DBUS_SESSION_BUS_ADDRESS=disabled:")
endfunction()
