set(ROOM_SOURCES profile_files.cpp profile_text.cpp)
