# SPDX-License-Identifier: Apache-2.0
# What `cmake --install` lays out, as two components: the workstation, and the development part for who writes a view.
#   cmake --install build/release --prefix /usr/local [--component workstation|development]
set(doc_dir ${CMAKE_INSTALL_DATADIR}/doc)
set(cmake_dir ${CMAKE_INSTALL_LIBDIR}/cmake/WorkstationFramework)

# --- the workstation (without Qt: framework and package alone)
install(TARGETS framework EXPORT WorkstationFramework
  LIBRARY DESTINATION ${VENTIQ_LIBRARY_DIR} COMPONENT workstation NAMELINK_COMPONENT development)
install(TARGETS ventiq LIBRARY DESTINATION ${VENTIQ_PACKAGE_DIR} COMPONENT workstation)
install(FILES LICENSE packaging/copyright CHANGELOG.md
  DESTINATION ${doc_dir}/ventiq-workstation COMPONENT workstation)
install(DIRECTORY docs/ DESTINATION ${doc_dir}/ventiq-workstation COMPONENT workstation
  PATTERN architecture.md EXCLUDE PATTERN write-a-view.md EXCLUDE PATTERN workstation.png EXCLUDE)
install(DIRECTORY LICENSES DESTINATION ${doc_dir}/ventiq-workstation COMPONENT workstation)
if(VENTIQ_WORKSTATION)
  install(TARGETS workstation RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT workstation)
  install(DIRECTORY data/sample/ DESTINATION ${VENTIQ_SAMPLE_DIR} COMPONENT workstation)
  install(FILES packaging/ventiq-workstation.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT workstation)
  install(FILES workstation/resources/icons/workstation.svg RENAME ventiq-workstation.svg
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps COMPONENT workstation)
  configure_file(packaging/ventiq-workstation.1.in ${PROJECT_BINARY_DIR}/packaging/ventiq-workstation.1 @ONLY)
  file(ARCHIVE_CREATE OUTPUT ${PROJECT_BINARY_DIR}/packaging/ventiq-workstation.1.gz
    PATHS ${PROJECT_BINARY_DIR}/packaging/ventiq-workstation.1 FORMAT raw COMPRESSION GZip)
  install(FILES ${PROJECT_BINARY_DIR}/packaging/ventiq-workstation.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1
    COMPONENT workstation)
endif()

# --- the development part
include(CMakePackageConfigHelpers)
configure_package_config_file(cmake/WorkstationFrameworkConfig.cmake.in
  ${PROJECT_BINARY_DIR}/packaging/WorkstationFrameworkConfig.cmake INSTALL_DESTINATION ${cmake_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/packaging/WorkstationFrameworkConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/packaging/WorkstationFrameworkConfig.cmake
              ${PROJECT_BINARY_DIR}/packaging/WorkstationFrameworkConfigVersion.cmake
  DESTINATION ${cmake_dir} COMPONENT development)
install(EXPORT WorkstationFramework NAMESPACE WorkstationFramework:: FILE WorkstationFrameworkTargets.cmake
  DESTINATION ${cmake_dir} COMPONENT development)
install(DIRECTORY framework DESTINATION ${VENTIQ_INCLUDE_DIR} COMPONENT development FILES_MATCHING PATTERN "*.h")
install(FILES packaging/copyright LICENSES/Apache-2.0.txt docs/write-a-view.md
  DESTINATION ${doc_dir}/ventiq-workstation-dev COMPONENT development)
install(DIRECTORY examples DESTINATION ${doc_dir}/ventiq-workstation-dev COMPONENT development)

if(VENTIQ_WORKSTATION)
  include(Packaging)
endif()
