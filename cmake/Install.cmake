# What `cmake --install` puts under the prefix: libzolmar.so, its headers under
# include/zolmar/ in the source layout (`#include "connection/cConexion.h"` against
# -I<prefix>/include/zolmar), the CMake package ZolmarDataComponents (imported target
# Zolmar::zolmar), the pkg-config file zolmar.pc and, as the component "programs", the
# `zolmar` program and the `zolmar-demo` application.
include(CMakePackageConfigHelpers)

set(ZLX_CMAKE_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/ZolmarDataComponents)

install(TARGETS zolmar EXPORT ZolmarDataComponentsTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/src/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zolmar
        FILES_MATCHING PATTERN "*.h")

# The programs find the library beside them in the prefix.
set(zlx_programs zolmar_cli)
if(TARGET zolmar-demo)
    list(APPEND zlx_programs zolmar-demo)
endif()
set_target_properties(${zlx_programs} PROPERTIES INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")
install(TARGETS ${zlx_programs} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT programs)

install(EXPORT ZolmarDataComponentsTargets NAMESPACE Zolmar::
        DESTINATION ${ZLX_CMAKE_PACKAGE_DIR})
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/ZolmarDataComponentsConfig.cmake.in
                              ${CMAKE_BINARY_DIR}/ZolmarDataComponentsConfig.cmake
                              INSTALL_DESTINATION ${ZLX_CMAKE_PACKAGE_DIR})
write_basic_package_version_file(${CMAKE_BINARY_DIR}/ZolmarDataComponentsConfigVersion.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_BINARY_DIR}/ZolmarDataComponentsConfig.cmake
              ${CMAKE_BINARY_DIR}/ZolmarDataComponentsConfigVersion.cmake
        DESTINATION ${ZLX_CMAKE_PACKAGE_DIR})

# zolmar.pc names its prefix relative to its own folder, so the tree may be installed
# anywhere (`cmake --install --prefix`).
file(RELATIVE_PATH ZLX_PC_PREFIX /p/${CMAKE_INSTALL_LIBDIR}/pkgconfig /p)
configure_file(${CMAKE_CURRENT_LIST_DIR}/zolmar.pc.in ${CMAKE_BINARY_DIR}/zolmar.pc @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/zolmar.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
