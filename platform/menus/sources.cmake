set(ROOM_SOURCES menu.cpp menu_window.cpp track_menu.cpp)
