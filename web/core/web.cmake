# What all sources are compiled with for the web, and pugixml from its own sources, as nobody packs it for there.
add_compile_options(-fwasm-exceptions -include ${CMAKE_SOURCE_DIR}/web/core/older_library.h)
add_compile_options(-Os)  # but for what tav_computes
add_link_options(-O3)  # it puts small functions into their callers; without that the engine takes four times as long
set(CMAKE_DISABLE_PRECOMPILE_HEADERS ON)  # those of this compiler forget some of its options
add_link_options(-fwasm-exceptions)

set(TAV_PUGIXML "" CACHE PATH "Folder with the sources of pugixml")
add_library(pugixml_web STATIC ${TAV_PUGIXML}/src/pugixml.cpp)
target_include_directories(pugixml_web SYSTEM PUBLIC ${TAV_PUGIXML}/src)
add_library(pugixml::pugixml ALIAS pugixml_web)
