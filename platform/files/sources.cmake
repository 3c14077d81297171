set(ROOM_SOURCES file_list.cpp file_list_input.cpp file_list_paint.cpp file_path.cpp folder_listing.cpp name_field.cpp
                 open_file_accept.cpp open_file_dialog.cpp open_file_folders.cpp open_file_hook.cpp swedish_text.cpp)
