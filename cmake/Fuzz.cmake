# The build of the fuzz targets: what they test and platform, nothing of the program.
add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
add_link_options(-fsanitize=address,undefined)
find_package(SQLite3 REQUIRED)
find_package(Boost 1.74 REQUIRED)
find_package(Threads REQUIRED)
add_subdirectory(src/platform)
add_subdirectory(tests/fuzz)
