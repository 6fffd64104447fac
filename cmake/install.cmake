# cmake --install: the libraries with their headers and a package file, and the program.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

install(TARGETS repora repora_reader EXPORT reporaTargets)
install(DIRECTORY repora reader DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
        FILES_MATCHING PATTERN "*.h" PATTERN "*.def")
if(REPORA_CLI)
  install(TARGETS repora_program)
endif()

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/repora)
set_target_properties(repora_reader PROPERTIES EXPORT_NAME reader)
install(EXPORT reporaTargets NAMESPACE repora:: FILE reporaConfig.cmake DESTINATION ${package_dir})
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/reporaConfigVersion.cmake
                                 COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/reporaConfigVersion.cmake DESTINATION ${package_dir})
