# Qwt for Qt 5. Debian's pkg-config file also asks for Qt5OpenGL, which the package does not bring along, so the header
# and the library are looked for by hand. Defines Qwt::Qwt.

find_path(QWT_INCLUDE_DIR qwt_plot.h PATH_SUFFIXES qwt qwt-qt5)
find_library(QWT_LIBRARY NAMES qwt-qt5 qwt)

if(QWT_INCLUDE_DIR)
    file(STRINGS ${QWT_INCLUDE_DIR}/qwt_global.h version_line REGEX "define QWT_VERSION_STR")
    string(REGEX MATCH "[0-9]+\\.[0-9]+\\.[0-9]+" Qwt_VERSION "${version_line}")
endif()

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Qwt REQUIRED_VARS QWT_LIBRARY QWT_INCLUDE_DIR VERSION_VAR Qwt_VERSION)
mark_as_advanced(QWT_INCLUDE_DIR QWT_LIBRARY)

if(Qwt_FOUND AND NOT TARGET Qwt::Qwt)
    add_library(Qwt::Qwt UNKNOWN IMPORTED)
    set_target_properties(
        Qwt::Qwt PROPERTIES IMPORTED_LOCATION ${QWT_LIBRARY} INTERFACE_INCLUDE_DIRECTORIES ${QWT_INCLUDE_DIR}
    )
endif()
