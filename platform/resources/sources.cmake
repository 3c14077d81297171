set(ROOM_SOURCES code_page.cpp loaded_modules.cpp module.cpp resource_index.cpp text_conversion.cpp)
