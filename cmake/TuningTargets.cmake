# What every target of the house shares: the include root, the warnings, the sanitizers.

add_library(tuning-options INTERFACE)
target_include_directories(tuning-options INTERFACE ${CMAKE_SOURCE_DIR})
target_compile_options(tuning-options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor)
target_compile_definitions(
    tuning-options INTERFACE QT_NO_CAST_TO_ASCII QT_DEPRECATED_WARNINGS QT_NO_FOREACH BOOST_ASIO_NO_DEPRECATED
)
if(TUNING_WERROR)
    target_compile_options(tuning-options INTERFACE -Werror)
endif()
if(TUNING_SANITIZE)
    target_compile_options(
        tuning-options INTERFACE -O1 -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer
                                 -Wno-maybe-uninitialized # g++ finds some in <regex> that are none
    )
    target_link_options(tuning-options INTERFACE -fsanitize=address,undefined)
endif()
if(CMAKE_BUILD_TYPE STREQUAL "Release" AND NOT WIN32)
    # What comes from a board shall find neither an unchecked copy nor a table to write to.
    target_compile_definitions(tuning-options INTERFACE _FORTIFY_SOURCE=3)
    target_link_options(tuning-options INTERFACE -Wl,-z,relro,-z,now)
endif()

# A layer: the static library NAME of all sources below its folder "source", but for the programs' main files.
function(tuning_library name)
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS source/*.cpp source/*.h source/*.qrc)
    list(FILTER sources EXCLUDE REGEX "/source/main\\.cpp$")
    add_library(${name} STATIC ${sources})
    target_link_libraries(${name} PUBLIC tuning-options ${ARGN})
endfunction()
