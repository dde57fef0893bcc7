# The parts of OpenCV that calibrate cameras. Debian has the CMake configuration in a package that brings along every
# part and its codecs, so the header and the libraries are looked for by hand. Defines
# OpenCVCalibration::OpenCVCalibration.

set(parts calib3d features2d imgproc core)

find_path(OPENCV_INCLUDE_DIR opencv2/calib3d.hpp PATH_SUFFIXES opencv4)
foreach(part IN LISTS parts)
    find_library(OPENCV_${part}_LIBRARY NAMES opencv_${part})
    list(APPEND libraries OPENCV_${part}_LIBRARY)
endforeach()

if(OPENCV_INCLUDE_DIR)
    file(STRINGS ${OPENCV_INCLUDE_DIR}/opencv2/core/version.hpp version_lines REGEX "define CV_VERSION_M")
    string(REGEX MATCH "MAJOR +([0-9]+).*MINOR +([0-9]+)" version_match "${version_lines}")
    set(OpenCVCalibration_VERSION ${CMAKE_MATCH_1}.${CMAKE_MATCH_2})
endif()

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(
    OpenCVCalibration REQUIRED_VARS ${libraries} OPENCV_INCLUDE_DIR VERSION_VAR OpenCVCalibration_VERSION
)
mark_as_advanced(OPENCV_INCLUDE_DIR ${libraries})

if(OpenCVCalibration_FOUND AND NOT TARGET OpenCVCalibration::OpenCVCalibration)
    add_library(OpenCVCalibration::OpenCVCalibration INTERFACE IMPORTED)
    target_include_directories(OpenCVCalibration::OpenCVCalibration SYSTEM INTERFACE ${OPENCV_INCLUDE_DIR})
    foreach(library IN LISTS libraries)
        target_link_libraries(OpenCVCalibration::OpenCVCalibration INTERFACE ${${library}})
    endforeach()
endif()
