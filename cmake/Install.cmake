# The installed package: library, headers as `tool/...`, analyses under share/tool/ANAITEM, the era table beside the
# programs, where the library looks for it, and under share/tool for other programs, package config.
# Another project writes find_package(Tool) and links Tool::tool, and Tool::tool_qt where Qt 6 is present.
include(CMakePackageConfigHelpers)

set(tool_package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Tool)

install(TARGETS tool EXPORT ToolTargets
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/tool DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
  FILES_MATCHING PATTERN "*.h")
if(EXISTS ${PROJECT_SOURCE_DIR}/data/ANAITEM)
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/data/ANAITEM DESTINATION ${CMAKE_INSTALL_DATADIR}/tool)
endif()

install(FILES ${PROJECT_SOURCE_DIR}/data/Era.dat DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${PROJECT_SOURCE_DIR}/data/Era.dat DESTINATION ${CMAKE_INSTALL_DATADIR}/tool)

if(TARGET tool_qt)
  install(TARGETS tool_qt EXPORT ToolQtTargets
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  install(FILES ${TOOL_QT_HEADERS} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/backends/qt)
  install(EXPORT ToolQtTargets NAMESPACE Tool:: DESTINATION ${tool_package_dir})
endif()

install(EXPORT ToolTargets NAMESPACE Tool:: DESTINATION ${tool_package_dir})
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/ToolConfig.cmake.in
  ${PROJECT_BINARY_DIR}/ToolConfig.cmake
  INSTALL_DESTINATION ${tool_package_dir}
  PATH_VARS CMAKE_INSTALL_DATADIR)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/ToolConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/ToolConfig.cmake ${PROJECT_BINARY_DIR}/ToolConfigVersion.cmake
  DESTINATION ${tool_package_dir})
