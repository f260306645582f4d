# A layer is a static library that sees only its own headers and those of the layers it links to.
# Headers are included as "<layer path>/<file>". Each layer gets an include root of its own that
# holds nothing but a link to its folder, so an include of a layer that is not linked does not build.

add_library(vantrel_options INTERFACE)
target_compile_options(
  vantrel_options
  INTERFACE -Wall
            -Wextra
            -Wpedantic
            -Wconversion
            -Wshadow
            -Werror
            # g++ 12 reports overlaps inside std::string that cannot happen.
            $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
            # The formulas round where their text says so and nowhere else.
            -ffp-contract=off
            -ftrapping-math)
if(VANTREL_SANITIZE)
  target_compile_options(
    vantrel_options
    INTERFACE -fsanitize=address,undefined
              -fno-sanitize-recover=all
              # g++ 12 loses track of std::variant and std::optional between the checks it adds; the
              # release build keeps this warning.
              $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
  target_link_options(vantrel_options INTERFACE -fsanitize=address,undefined)
endif()

# vantrel_layer(<name> PATH <folder below src> SOURCES ... [DEPENDS ...])
function(vantrel_layer name)
  cmake_parse_arguments(LAYER "" "PATH" "SOURCES;DEPENDS" ${ARGN})
  set(root ${PROJECT_BINARY_DIR}/layers/${name})
  cmake_path(GET LAYER_PATH PARENT_PATH parent)
  file(MAKE_DIRECTORY ${root}/${parent})
  file(CREATE_LINK ${PROJECT_SOURCE_DIR}/src/${LAYER_PATH} ${root}/${LAYER_PATH} SYMBOLIC)
  add_library(vantrel_${name} STATIC ${LAYER_SOURCES})
  add_library(Vantrel::${name} ALIAS vantrel_${name})
  target_include_directories(vantrel_${name} PUBLIC ${root})
  target_link_libraries(
    vantrel_${name}
    PUBLIC ${LAYER_DEPENDS}
    PRIVATE vantrel_options)
endfunction()

# vantrel_tests(<name> SOURCES ... [DEPENDS ...]): one GoogleTest program, its cases known to CTest.
function(vantrel_tests name)
  cmake_parse_arguments(TESTS "" "" "SOURCES;DEPENDS" ${ARGN})
  add_executable(vantrel_${name}_tests ${TESTS_SOURCES})
  target_link_libraries(vantrel_${name}_tests PRIVATE ${TESTS_DEPENDS} GTest::gtest_main
                                                      vantrel_options)
  gtest_discover_tests(vantrel_${name}_tests TEST_PREFIX "${name}." DISCOVERY_TIMEOUT 60)
endfunction()
