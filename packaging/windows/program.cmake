# What Windows wants to know of a program: icon, version, how it deals with scaled screens and letters.
set(windows ${PROJECT_SOURCE_DIR}/packaging/windows)
set(icons ${PROJECT_SOURCE_DIR}/packaging/icons)
set(icon ${CMAKE_CURRENT_BINARY_DIR}/lumrake.ico)
add_custom_command(
    OUTPUT ${icon}
    COMMAND convert ${icons}/lumrake-16.png ${icons}/lumrake-32.png ${icons}/lumrake-48.png ${icons}/lumrake-256.png
            ${icon}
    VERBATIM)
add_library(lumrake_for_windows OBJECT ${windows}/lumrake.rc ${icon})
target_include_directories(lumrake_for_windows PRIVATE ${windows} ${CMAKE_CURRENT_BINARY_DIR})
set_source_files_properties(${windows}/lumrake.rc PROPERTIES OBJECT_DEPENDS "${icon};${windows}/lumrake.manifest")
set_target_properties(lumrake PROPERTIES WIN32_EXECUTABLE ON)
target_link_libraries(lumrake PRIVATE $<TARGET_OBJECTS:lumrake_for_windows>)
# The same bytes from the same sources.
target_link_options(lumrake PRIVATE -Wl,--no-insert-timestamp)
