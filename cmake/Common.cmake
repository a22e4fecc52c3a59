# Shared build settings for every target of ours.
add_library(singbox_settings INTERFACE)
target_compile_features(singbox_settings INTERFACE cxx_std_20)
target_compile_definitions(singbox_settings INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CONTEXTLESS_CONNECT QT_USE_QSTRINGBUILDER
  QT_NO_KEYWORDS)
if(MSVC)
  # Sources are UTF-8 with Chinese texts; C4996 is the deprecation warning.
  # Not yet compiled with MSVC, so its warnings do not stop the build there.
  target_compile_options(singbox_settings INTERFACE /W4 /utf-8 /permissive- /Zc:__cplusplus /wd4996)
  target_compile_definitions(singbox_settings INTERFACE NOMINMAX WIN32_LEAN_AND_MEAN)
else()
  target_compile_options(singbox_settings INTERFACE -Wall -Wextra -Werror -Wno-deprecated-declarations
    # GCC 12 reports false positives inside Qt's inline string code.
    -Wno-maybe-uninitialized)
endif()

# singbox_add_test(NAME <name> SOURCES ... LIBS ... LABELS ... [DB])
# A DB test runs once on SQLite and, when SINGBOX_TEST_PG is set at configure
# or test time, once more on PostgreSQL (label pg).
function(singbox_add_test)
  cmake_parse_arguments(T "DB" "NAME" "SOURCES;LIBS;LABELS" ${ARGN})
  add_executable(${T_NAME} ${T_SOURCES})
  target_link_libraries(${T_NAME} PRIVATE singbox_settings Qt6::Test testsupport ${T_LIBS})
  set(env "QTEST_DISABLE_STACKTRACE=1;QT_QPA_PLATFORM=offscreen;LANG=C.UTF-8;LC_ALL=C.UTF-8;QT_LOGGING_RULES=qt.qpa.*=false")
  add_test(NAME ${T_NAME} COMMAND ${T_NAME})
  set_tests_properties(${T_NAME} PROPERTIES LABELS "${T_LABELS}" ENVIRONMENT "${env};SINGBOX_TEST_BACKEND=sqlite")
  if(T_DB)
    add_test(NAME ${T_NAME}_pg COMMAND ${T_NAME})
    set_tests_properties(${T_NAME}_pg PROPERTIES LABELS "pg;${T_LABELS}"
      ENVIRONMENT "${env};SINGBOX_TEST_BACKEND=pg" RESOURCE_LOCK pgserver)
  endif()
endfunction()
