set(ROOM_SOURCES)
list(APPEND ROOM_SOURCES static.cpp button.cpp button_paint.cpp tab_control.cpp tab_paint.cpp
            track_bar.cpp track_bar_paint.cpp)
list(APPEND ROOM_SOURCES edit.cpp edit_input.cpp edit_menu.cpp edit_text.cpp edit_view.cpp list_box.cpp list_box_input.cpp
            list_box_paint.cpp list_items.cpp list_scroll_bar.cpp scroll_bar.cpp combo_box.cpp combo_box_list.cpp combo_box_paint.cpp)
list(APPEND ROOM_SOURCES header_control.cpp header_input.cpp header_paint.cpp list_view.cpp list_view_columns.cpp
            list_view_edit.cpp list_view_input.cpp list_view_items.cpp list_view_keyboard.cpp list_view_layout.cpp
            list_view_paint.cpp list_view_rows.cpp list_view_state.cpp)
