# velko_library(NAME LIBS...): the folder that calls it becomes the library velko_NAME, made of all its sources.
function(velko_library name)
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
    list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
    add_library(velko_${name} STATIC ${sources})
    target_include_directories(velko_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(velko_${name} PUBLIC ${ARGN})
    qt6_extract_metatypes(velko_${name}) # what qmllint knows of types that QML names
endfunction()

# velko_test(NAME LIBS...): the folder that calls it becomes one GoogleTest program, test_NAME, and one CTest entry.
function(velko_test name)
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
    add_executable(test_${name} ${sources} ${PROJECT_SOURCE_DIR}/tests/main.cpp)
    target_include_directories(test_${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    target_link_libraries(test_${name} PRIVATE ${ARGN} GTest::gtest)
    target_compile_definitions(test_${name} PRIVATE
        VELKO_SOURCE_DIR="${PROJECT_SOURCE_DIR}" VELKO_BUILD_DIR="${CMAKE_BINARY_DIR}")
    add_test(NAME ${name} COMMAND test_${name})
endfunction()
