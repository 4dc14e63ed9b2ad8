# The settings store under processes that are killed, compete, find it damaged or may not write.
add_executable(storeTests storeProcessesTest.cpp storeDamageTest.cpp storeUnwritableTest.cpp)
target_link_libraries(storeTests PRIVATE lorelin_test_support lorelin_platform PkgConfig::PLATFORM_LIBS
                      GTest::gmock_main)
target_compile_definitions(storeTests PRIVATE LORELIN_BIN_DIR="${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
add_dependencies(storeTests lorelin-engine lorelin-cli lorelin_pages)
gtest_discover_tests(storeTests TEST_PREFIX "e2e." PROPERTIES LABELS e2e TIMEOUT 120)
