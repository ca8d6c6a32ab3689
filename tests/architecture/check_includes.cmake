# Fails on an include that breaks the one direction of the rooms. Each row: a folder, then what its files may include
# (beginnings of paths, of Qt headers the modules that they may not come from).
cmake_minimum_required(VERSION 3.25)

set(rules
    "src/database/values|database/values/"
    "src/database/dialect|database/values/,database/dialect/"
    "src/database|database/"
    "src/contracts|contracts/,database/values/"
    "src/archive|archive/"
    "src/library/controls|library/controls/,contracts/,database/values/"
    "src/library/layout|library/layout/,library/controls/,contracts/,database/values/"
    "src/library/frame|library/frame/,library/layout/,library/controls/,contracts/,database/values/"
    "src/library/records|library/records/,library/frame/,library/layout/,library/controls/,contracts/,database/values/"
    "src/library/lists|library/lists/,library/records/,library/frame/,library/layout/,library/controls/,contracts/,database/values/"
    "src/library|library/,contracts/,database/values/"
    "src/host|host/,contracts/,database/"
    "src/screens|screens/,archive/,library/,contracts/,database/values/"
    "src/component|component/,screens/,library/,contracts/"
    "src/shell/print|shell/print/,screens/look/,contracts/"
    "src/shell/admin|shell/admin/,host/,contracts/,database/"
    "src/shell|shell/,component/component_library.h,screens/look/,host/,contracts/,database/")
set(widget_headers "^(QWidget|QApplication|QMainWindow|QDialog|QLabel|QLineEdit|QTable|QTree|QList(View|Widget)|QPainter|QIcon|QPixmap|QMessageBox|QPushButton|QComboBox|QMenu|QtWidgets|QtGui|QFileDialog|QColor|QBrush|QFont)")
set(engine_headers "^(sqlite3|libpq)")
set(broken 0)

foreach(rule IN LISTS rules)
    string(REGEX REPLACE "\\|.*" "" folder "${rule}")
    string(REGEX REPLACE ".*\\|" "" allowed "${rule}")
    string(REPLACE "," ";" allowed "${allowed}")
    file(GLOB_RECURSE files ${SOURCE_DIR}/${folder}/*.h ${SOURCE_DIR}/${folder}/*.cpp)
    foreach(file IN LISTS files)
        file(RELATIVE_PATH path ${SOURCE_DIR} ${file})
        # A folder with a row of its own is not judged by its parent's.
        set(own TRUE)
        foreach(other IN LISTS rules)
            string(REGEX REPLACE "\\|.*" "" other_folder "${other}")
            string(LENGTH "${other_folder}" other_length)
            string(LENGTH "${folder}" length)
            string(FIND "${path}" "${other_folder}/" at)
            if(at EQUAL 0 AND other_length GREATER length)
                set(own FALSE)
            endif()
        endforeach()
        if(NOT own)
            continue()
        endif()
        file(STRINGS ${file} lines REGEX "^#include")
        foreach(line IN LISTS lines)
            if(line MATCHES "^#include \"([^\"]+)\"")
                set(header ${CMAKE_MATCH_1})
                set(fits FALSE)
                foreach(beginning IN LISTS allowed)
                    string(FIND "${header}" "${beginning}" at)
                    if(at EQUAL 0)
                        set(fits TRUE)
                    endif()
                endforeach()
                if(NOT fits AND NOT header MATCHES "\\.moc$")
                    message(SEND_ERROR "${path} includes ${header}")
                    set(broken 1)
                endif()
            elseif(line MATCHES "^#include <([^>]+)>")
                set(header ${CMAKE_MATCH_1})
                if(header MATCHES "${widget_headers}" AND folder MATCHES "src/(archive|database|contracts|library|host)")
                    message(SEND_ERROR "${path} includes <${header}>: no widgets in this room")
                    set(broken 1)
                endif()
                if(header STREQUAL "zip.h" AND NOT folder STREQUAL "src/archive")
                    message(SEND_ERROR "${path} includes <${header}>: only the archive knows its format")
                    set(broken 1)
                endif()
                if(header MATCHES "${engine_headers}" AND NOT folder MATCHES "^src/database")
                    message(SEND_ERROR "${path} includes <${header}>: only the database speaks to an engine")
                    set(broken 1)
                endif()
            endif()
        endforeach()
    endforeach()
endforeach()
if(broken)
    message(FATAL_ERROR "the rooms' one direction is broken")
endif()
