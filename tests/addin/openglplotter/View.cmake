# SPDX-FileCopyrightText: The GCodeAddin developers
# SPDX-License-Identifier: MIT
# The tests of the view: its arithmetic, and the window itself.
add_executable(view_math_test
  ${CMAKE_CURRENT_LIST_DIR}/LiteralMatrix.cpp
  ${CMAKE_CURRENT_LIST_DIR}/LiteralMatrix.h
  ${CMAKE_CURRENT_LIST_DIR}/LiteralSteps.cpp
  ${CMAKE_CURRENT_LIST_DIR}/LiteralSteps.h
  ${CMAKE_CURRENT_LIST_DIR}/PlaybackStepsTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/SceneFiguresTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/SegmentSteps.h
  ${CMAKE_CURRENT_LIST_DIR}/ViewFrameTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ViewNavigationTest.cpp)
target_link_libraries(view_math_test PRIVATE gcode_preview GTest::gtest_main)
gtest_discover_tests(view_math_test PROPERTIES TIMEOUT 60 LABELS asan)

add_executable(ogl_window_test
  ${CMAKE_CURRENT_LIST_DIR}/LiteralMatrix.cpp
  ${CMAKE_CURRENT_LIST_DIR}/LiteralMatrix.h
  ${CMAKE_CURRENT_LIST_DIR}/OGLWindowDrawingTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/OGLWindowNavigationTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/OGLWindowPicturesTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/OGLWindowPlaybackTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/OGLWindowState.h
  ${CMAKE_CURRENT_LIST_DIR}/OGLWindowTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/PictureComparison.cpp
  ${CMAKE_CURRENT_LIST_DIR}/PictureComparison.h
  ${CMAKE_CURRENT_LIST_DIR}/PictureComparisonTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/SegmentSteps.h
  ${CMAKE_CURRENT_LIST_DIR}/ViewTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ViewTest.h)
target_compile_definitions(ogl_window_test PRIVATE
  "KX_BASELINES=\"${CMAKE_CURRENT_LIST_DIR}/pictures\""
  "KX_ACTUAL_PICTURES=\"${CMAKE_CURRENT_BINARY_DIR}/pictures\"")
target_link_libraries(ogl_window_test PRIVATE gcode_panel qt_test_support)
# Mesa's software renderer draws the same on every machine.
gtest_discover_tests(ogl_window_test
  DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60
  PROPERTIES TIMEOUT 60 ENVIRONMENT LIBGL_ALWAYS_SOFTWARE=1)

# Once more without a display: everything but the drawing works.
add_test(NAME ogl_window_test_without_display COMMAND ogl_window_test)
set_tests_properties(ogl_window_test_without_display PROPERTIES
  TIMEOUT 120 ENVIRONMENT QT_QPA_PLATFORM=offscreen ENVIRONMENT_MODIFICATION DISPLAY=unset:)

# Counts what the view asks of memory and of OpenGL, which sanitizers do in their own way.
if(NOT KX_SANITIZE)
  add_executable(view_cost_test
    ${CMAKE_CURRENT_LIST_DIR}/CountedGl.cpp
    ${CMAKE_CURRENT_LIST_DIR}/CountedGl.h
    ${CMAKE_CURRENT_LIST_DIR}/CountedMemory.cpp
    ${CMAKE_CURRENT_LIST_DIR}/CountedMemory.h
    ${CMAKE_CURRENT_LIST_DIR}/MillingProgram.cpp
    ${CMAKE_CURRENT_LIST_DIR}/MillingProgram.h
    ${CMAKE_CURRENT_LIST_DIR}/ViewCostTest.cpp
    ${CMAKE_CURRENT_LIST_DIR}/ViewTest.cpp
    ${CMAKE_CURRENT_LIST_DIR}/ViewTest.h)
  target_link_libraries(view_cost_test PRIVATE gcode_panel qt_test_support ${CMAKE_DL_LIBS})
  gtest_discover_tests(view_cost_test
    DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60
    PROPERTIES TIMEOUT 60 ENVIRONMENT LIBGL_ALWAYS_SOFTWARE=1)
endif()
