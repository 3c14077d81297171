set(ROOM_SOURCES dialog_class.cpp dialog_create.cpp dialog_items.cpp dialog_keys.cpp dialog_modal.cpp dialog_state.cpp
                 dialog_template.cpp dialog_walk.cpp message_box.cpp message_box_icon.cpp property_sheet_apply.cpp
                 property_sheet_page.cpp property_sheet_pages.cpp property_sheet_window.cpp)
