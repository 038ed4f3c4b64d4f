# SPDX-FileCopyrightText: The GCodeAddin developers
# SPDX-License-Identifier: MIT
# Everything of the panel that is a function of its inputs, without window or host.
add_library(gcode_core STATIC
  ${CMAKE_CURRENT_LIST_DIR}/Arc.h
  ${CMAKE_CURRENT_LIST_DIR}/ArcGCodeGeneratorImpl.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ArcGCodeGeneratorImpl.h
  ${CMAKE_CURRENT_LIST_DIR}/DeltaFunction.cpp
  ${CMAKE_CURRENT_LIST_DIR}/DeltaFunction.h
  ${CMAKE_CURRENT_LIST_DIR}/DistanceFilter.cpp
  ${CMAKE_CURRENT_LIST_DIR}/DistanceFilter.h
  ${CMAKE_CURRENT_LIST_DIR}/Entity.h
  ${CMAKE_CURRENT_LIST_DIR}/GCodeGeneratorInt.h
  ${CMAKE_CURRENT_LIST_DIR}/LineGCodeGeneratorImpl.cpp
  ${CMAKE_CURRENT_LIST_DIR}/LineGCodeGeneratorImpl.h
  ${CMAKE_CURRENT_LIST_DIR}/LineNumbering.cpp
  ${CMAKE_CURRENT_LIST_DIR}/LineNumbering.h
  ${CMAKE_CURRENT_LIST_DIR}/MotionLine.cpp
  ${CMAKE_CURRENT_LIST_DIR}/MotionLine.h
  ${CMAKE_CURRENT_LIST_DIR}/OutputText.cpp
  ${CMAKE_CURRENT_LIST_DIR}/OutputText.h
  ${CMAKE_CURRENT_LIST_DIR}/Parameters.h
  ${CMAKE_CURRENT_LIST_DIR}/PathEntity.h
  ${CMAKE_CURRENT_LIST_DIR}/PathOrder.cpp
  ${CMAKE_CURRENT_LIST_DIR}/PathOrder.h
  ${CMAKE_CURRENT_LIST_DIR}/Point.h
  ${CMAKE_CURRENT_LIST_DIR}/PointGCodeGeneratorImpl.cpp
  ${CMAKE_CURRENT_LIST_DIR}/PointGCodeGeneratorImpl.h
  ${CMAKE_CURRENT_LIST_DIR}/PositionAndFeed.h
  ${CMAKE_CURRENT_LIST_DIR}/PostProcessorImpl.cpp
  ${CMAKE_CURRENT_LIST_DIR}/PostProcessorImpl.h
  ${CMAKE_CURRENT_LIST_DIR}/PostProcessorInt.h
  ${CMAKE_CURRENT_LIST_DIR}/ProgramText.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ProgramText.h
  ${CMAKE_CURRENT_LIST_DIR}/SwapHistory.cpp
  ${CMAKE_CURRENT_LIST_DIR}/SwapHistory.h
  ${CMAKE_CURRENT_LIST_DIR}/UnitText.cpp
  ${CMAKE_CURRENT_LIST_DIR}/UnitText.h
)
cmake_path(GET CMAKE_CURRENT_LIST_DIR PARENT_PATH gcode_core_root)
target_include_directories(gcode_core PUBLIC ${gcode_core_root} ${gcode_core_root}/../sdk/include)
