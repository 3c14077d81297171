set(ROOM_SOURCES message_names.cpp message_text.cpp)
