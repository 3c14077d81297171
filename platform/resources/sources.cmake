set(ROOM_SOURCES code_page.cpp files.cpp loaded_modules.cpp module.cpp resource_index.cpp text_conversion.cpp)
