# What `cmake --install` and the packages contain.
#
# Linux: the command (with its data files in one folder, and a link to it from bin), the library with its public
# headers, a CMake package and a pkg-config file. Windows: the control and its desktop host with everything that
# a host programmer needs beside them.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)
include(cmake/PublicHeaders.cmake)

set(plotvane_element_data
  "${PROJECT_SOURCE_DIR}/identifiers/data/PTE Names.dat"
  "${PROJECT_SOURCE_DIR}/identifiers/data/PTE Symbols.dat"
  "${PROJECT_SOURCE_DIR}/identifiers/data/PTE Weights.dat")

if(WIN32)
  install(TARGETS Plotvane PlotvaneHost
    RUNTIME DESTINATION . COMPONENT control
    LIBRARY DESTINATION . COMPONENT control)
  install(FILES
    ${plotvane_element_data}
    ${PROJECT_BINARY_DIR}/Plotvane.manifest
    ${PROJECT_SOURCE_DIR}/control/com/Plotvane.idl
    ${PROJECT_SOURCE_DIR}/cmake/windows/register.cmd
    ${PROJECT_SOURCE_DIR}/cmake/windows/register-for-me.cmd
    ${PROJECT_SOURCE_DIR}/cmake/windows/unregister.cmd
    ${PROJECT_SOURCE_DIR}/cmake/windows/unregister-for-me.cmd
    ${PROJECT_SOURCE_DIR}/cmake/windows/README.txt
    ${PROJECT_SOURCE_DIR}/docs/hosting.md
    DESTINATION . COMPONENT control)
  install(FILES ${PROJECT_SOURCE_DIR}/docs/examples/YFunction.h DESTINATION examples COMPONENT control)
  get_target_property(plotvane_type_library plotvane_interface PLOTVANE_TYPE_LIBRARY)
  install(FILES ${plotvane_type_library} DESTINATION . RENAME Plotvane.tlb COMPONENT control)
  return()
endif()

# The program finds its data files beside itself, so both live in a folder of their own.
set(plotvane_program_dir ${CMAKE_INSTALL_LIBDIR}/plotvane)
install(TARGETS plotvane_program RUNTIME DESTINATION ${plotvane_program_dir} COMPONENT program)
install(FILES ${plotvane_element_data} DESTINATION ${plotvane_program_dir} COMPONENT program)
file(RELATIVE_PATH plotvane_link_target
  /${CMAKE_INSTALL_BINDIR} /${plotvane_program_dir}/plotvane)
file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/link)
file(CREATE_LINK ${plotvane_link_target} ${PROJECT_BINARY_DIR}/link/plotvane SYMBOLIC)
install(FILES ${PROJECT_BINARY_DIR}/link/plotvane DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT program)

# compressed(SOURCE FILE): the target `documents` makes FILE.gz in the build folder, the same bytes each time.
find_program(PLOTVANE_GZIP gzip REQUIRED)
add_custom_target(documents ALL)
function(compressed source file)
  set(made ${PROJECT_BINARY_DIR}/documents/${file}.gz)
  add_custom_command(OUTPUT ${made} COMMAND ${PLOTVANE_GZIP} -9nc ${source} > ${made} DEPENDS ${source} VERBATIM)
  add_custom_target(document_${file} DEPENDS ${made})
  add_dependencies(documents document_${file})
endfunction()
file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/documents)
compressed(${PROJECT_SOURCE_DIR}/hosts/terminal/plotvane.1 plotvane.1)
compressed(${PROJECT_SOURCE_DIR}/CHANGELOG.md changelog)
install(FILES ${PROJECT_BINARY_DIR}/documents/plotvane.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT program)
install(FILES ${PROJECT_BINARY_DIR}/documents/changelog.gz DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/plotvane COMPONENT program)

# What users of the library may include, and what that includes. Headers say "engine/clsExp.h" among themselves; users
# say <plotvane/engine/clsExp.h>. Both are found.
plotvane_public_headers(headers
  platform/conversions.h platform/number_text.h platform/open_files.h platform/runtime_error.h
  platform/standard_error.h platform/value.h platform/variable_table.h
  identifiers/clsNodeTable.h identifiers/clsPeriodicTable.h identifiers/clsVarTable.h
  functions/catalogue.h functions/clsMath.h
  engine/clsExp.h engine/clsPreParsedExpression.h engine/clsStack.h engine/clsStackl.h engine/clsStdErrObj.h
  graph/clsYGraph.h graph/drawing_surface.h graph/raster_surface.h graph/y_function.h
  control/face.h control/graph.h control/headless_face.h)
foreach(header IN LISTS headers)
  get_filename_component(folder ${header} DIRECTORY)
  install(FILES ${PROJECT_SOURCE_DIR}/${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/plotvane/${folder} COMPONENT library)
endforeach()
target_include_directories(plotvane INTERFACE
  $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>
  $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/plotvane>)
install(TARGETS plotvane EXPORT PlotvaneTargets
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library)

set(plotvane_config_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Plotvane)
install(EXPORT PlotvaneTargets NAMESPACE Plotvane:: FILE PlotvaneConfig.cmake
  DESTINATION ${plotvane_config_dir} COMPONENT library)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/PlotvaneConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/PlotvaneConfigVersion.cmake DESTINATION ${plotvane_config_dir} COMPONENT library)

# The pkg-config file names its prefix from where it lies, so that an unpacked tree works anywhere.
file(RELATIVE_PATH plotvane_pc_prefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" plotvane_pc_prefix "${plotvane_pc_prefix}")
configure_file(cmake/plotvane.pc.in plotvane.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/plotvane.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT library)
