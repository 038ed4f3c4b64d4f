# SPDX-FileCopyrightText: The GCodeAddin developers
# SPDX-License-Identifier: MIT
# What turns a program into a path, and the arithmetic of the view, without a window.
add_library(gcode_preview STATIC
  ${CMAKE_CURRENT_LIST_DIR}/Color.h
  ${CMAKE_CURRENT_LIST_DIR}/GCodeParser.cpp
  ${CMAKE_CURRENT_LIST_DIR}/GCodeParser.h
  ${CMAKE_CURRENT_LIST_DIR}/GCodeParserMotion.cpp
  ${CMAKE_CURRENT_LIST_DIR}/PathList.h
  ${CMAKE_CURRENT_LIST_DIR}/PlaybackSteps.cpp
  ${CMAKE_CURRENT_LIST_DIR}/PlaybackSteps.h
  ${CMAKE_CURRENT_LIST_DIR}/Point3d.h
  ${CMAKE_CURRENT_LIST_DIR}/PreviewPath.cpp
  ${CMAKE_CURRENT_LIST_DIR}/PreviewPath.h
  ${CMAKE_CURRENT_LIST_DIR}/SceneFigures.cpp
  ${CMAKE_CURRENT_LIST_DIR}/SceneFigures.h
  ${CMAKE_CURRENT_LIST_DIR}/ViewNavigation.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ViewNavigation.h
  ${CMAKE_CURRENT_LIST_DIR}/WordNumber.cpp
  ${CMAKE_CURRENT_LIST_DIR}/WordNumber.h
  ${CMAKE_CURRENT_LIST_DIR}/WordScan.cpp
  ${CMAKE_CURRENT_LIST_DIR}/WordScan.h
)
cmake_path(GET CMAKE_CURRENT_LIST_DIR PARENT_PATH gcode_preview_root)
target_include_directories(gcode_preview PUBLIC ${gcode_preview_root})
target_link_libraries(gcode_preview PUBLIC Qt5::Gui)
